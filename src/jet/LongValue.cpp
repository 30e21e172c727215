#include "jet/LongValue.h"

#include <set>

#include "jet/Damage.h"
#include "jet/DataPage.h"

namespace jet {
namespace {

using base::Bytes;
using base::ByteSpan;
using base::Failure;
using base::Result;
using format::LongValueForm;
using format::PageKind;

struct Head {
  std::size_t length = 0;
  LongValueForm form = LongValueForm::Inline;
  RowPointer first;
};

Result<Head> parseHead(ByteSpan field) {
  if (field.size() < sizeof(format::LongValueHead))
    return base::fail(base::ErrorCode::Damaged, "Kopf eines langen Textes ist unvollständig");
  const std::uint32_t word = JET_FIELD(format::LongValueHead, lengthAndForm).get(field);
  const std::uint32_t form = word >> format::kLongValueFormShift;
  if (form > static_cast<std::uint32_t>(LongValueForm::Inline))
    return base::fail(base::ErrorCode::Damaged, "Form eines langen Textes ist unbekannt");
  const std::uint32_t first = JET_FIELD(format::LongValueHead, first).get(field);
  return Head{word & format::kLongValueLengthMask, static_cast<LongValueForm>(form),
              RowPointer::fromNumber(first)};
}

// A row on a page of long values.
struct Piece {
  PageRef page;
  ByteSpan bytes;
};

Result<Piece> readPiece(const Pager& pager, RowPointer where) {
  auto page = pager.page(where.page, PageKind::Data);
  if (!page) return Failure(page.error());
  auto rows = DataPage::parse(pager.version(), where.page, **page);
  if (!rows) return Failure(rows.error());
  if (rows->owner() != format::kLongValueOwner)
    return damaged(where.page, "Verweis auf einen langen Text führt auf eine andere Seite");
  auto slot = rows->slot(where.slot);
  if (!slot) return Failure(slot.error());
  if (slot->state != SlotState::Row)
    return damaged(where.page, "Verweis auf einen gelöschten langen Text");
  return Piece{*page, rows->bytes(*slot)};
}

Result<Bytes> readChain(const Pager& pager, const Head& head) {
  constexpr format::Field kNext{0, sizeof(format::RowPointerRecord)};
  Bytes value;
  std::set<RowPointer> seen;
  for (RowPointer where = head.first; where.toNumber() != 0;) {
    if (!seen.insert(where).second)
      return damaged(where.page, "Teile eines langen Textes laufen im Kreis");
    auto piece = readPiece(pager, where);
    if (!piece) return Failure(piece.error());
    if (piece->bytes.size() < kNext.width)
      return damaged(where.page, "Teil eines langen Textes ist zu kurz");
    const ByteSpan data = piece->bytes.subspan(kNext.width);
    if (data.size() > head.length - value.size())
      return damaged(where.page, "Langer Text ist länger als angegeben");
    value.insert(value.end(), data.begin(), data.end());
    where = RowPointer::fromNumber(kNext.get(piece->bytes));
  }
  if (value.size() != head.length)
    return damaged(head.first.page, "Langer Text ist kürzer als angegeben");
  return value;
}

}  // namespace

Result<Bytes> readLongValue(const Pager& pager, ByteSpan field) {
  if (field.empty()) return Bytes();
  auto head = parseHead(field);
  if (!head) return Failure(head.error());
  if (head->form == LongValueForm::Chain) return readChain(pager, *head);
  ByteSpan data = field.subspan(sizeof(format::LongValueHead));
  Piece piece;
  if (head->form == LongValueForm::OneRow) {
    auto row = readPiece(pager, head->first);
    if (!row) return Failure(row.error());
    piece = std::move(*row);
    data = piece.bytes;
  }
  if (data.size() < head->length) {
    Failure cut = base::fail(base::ErrorCode::Damaged, "Langer Text ist kürzer als angegeben");
    return head->form == LongValueForm::OneRow ? at(head->first.page, cut.value()) : cut;
  }
  data = data.first(head->length);
  return Bytes(data.begin(), data.end());
}

}  // namespace jet
