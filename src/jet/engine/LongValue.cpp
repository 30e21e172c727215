#include "jet/engine/LongValue.h"

#include <set>

#include "jet/engine/Damage.h"
#include "jet/engine/DataPage.h"
#include "jet/engine/RowSpace.h"

namespace jet {
namespace {

using format::LongValueForm;
using format::PageKind;

struct Head {
  std::size_t length = 0;
  LongValueForm form = LongValueForm::Inline;
  RowPointer first;
};

// Each part of a chain starts with a pointer to the next, 0 = last.
constexpr format::Field kNextPiece{0, sizeof(format::RowPointerRecord)};

Result<Head> parseHead(ByteSpan field) {
  if (field.size() < sizeof(format::LongValueHead))
    return refuse(base::ErrorCode::Damaged, "the head of a long value is incomplete");
  const std::uint32_t word = JET_FIELD(format::LongValueHead, lengthAndForm).get(field);
  const std::uint32_t form = word >> format::kLongValueFormShift;
  if (form > static_cast<std::uint32_t>(LongValueForm::Inline))
    return refuse(base::ErrorCode::Damaged, "the form of a long value is unknown");
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
    return damaged(where.page, "a pointer to a long value leads to another page");
  auto slot = rows->slot(where.slot);
  if (!slot) return Failure(slot.error());
  if (slot->state != SlotState::Row)
    return damaged(where.page, "a pointer leads to a deleted long value");
  return Piece{*page, rows->bytes(*slot)};
}

// Calls visit(where, data) for each part of a chain; no more than the head's length in all.
template <class Visit>
Result<void> walkChain(const Pager& pager, const Head& head, const Visit& visit) {
  std::set<RowPointer> seen;
  std::size_t length = 0;
  for (RowPointer where = head.first; where.toNumber() != 0;) {
    if (!seen.insert(where).second)
      return damaged(where.page, "the parts of a long value run in a circle");
    auto piece = readPiece(pager, where);
    if (!piece) return Failure(piece.error());
    if (piece->bytes.size() < kNextPiece.width)
      return damaged(where.page, "a part of a long value is too short");
    const ByteSpan data = piece->bytes.subspan(kNextPiece.width);
    if (data.size() > head.length - length)
      return damaged(where.page, "a long value is longer than it says");
    visit(where, data);
    length += data.size();
    where = RowPointer::fromNumber(kNextPiece.get(piece->bytes));
  }
  if (length != head.length)
    return damaged(head.first.page, "a long value is shorter than it says");
  return {};
}

Result<Bytes> readChain(const Pager& pager, const Head& head) {
  Bytes value;
  auto done = walkChain(pager, head, [&](RowPointer, ByteSpan data) {
    value.insert(value.end(), data.begin(), data.end());
  });
  if (!done) return Failure(done.error());
  return value;
}

Bytes encodeHead(std::size_t length, LongValueForm form, RowPointer first) {
  Bytes field(sizeof(format::LongValueHead));
  const auto word = static_cast<std::uint32_t>(length) | static_cast<std::uint32_t>(form)
                                                             << format::kLongValueFormShift;
  JET_FIELD(format::LongValueHead, lengthAndForm).set(field, word);
  JET_FIELD(format::LongValueHead, first).set(field, first.toNumber());
  return field;
}

Result<RowSpace> spaceOf(Pager& pager, const ColumnDef& column) {
  if (!column.ownedPages || !column.freeSpacePages)
    return refuse(base::ErrorCode::Unsupported,
                  "the file keeps no pages for long values of this column");
  return RowSpace(pager, format::kLongValueOwner, *column.ownedPages, *column.freeSpacePages);
}

// From the last part to the first, because each names the one after it.
Result<RowPointer> writeChain(RowSpace& space, std::size_t maxRow, ByteSpan value) {
  const std::size_t perPiece = maxRow - kNextPiece.width;
  RowPointer next;
  for (std::size_t start = (value.size() - 1) / perPiece * perPiece;; start -= perPiece) {
    const ByteSpan data = value.subspan(start, std::min(perPiece, value.size() - start));
    Bytes row(kNextPiece.width);
    kNextPiece.set(row, next.toNumber());
    row.insert(row.end(), data.begin(), data.end());
    auto where = space.insert(row, SlotState::Row);
    if (!where) return where;
    next = *where;
    if (start == 0) return next;
  }
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
    auto cut = refuse(base::ErrorCode::Damaged, "a long value is shorter than it says");
    return head->form == LongValueForm::OneRow ? at(head->first.page, cut) : cut;
  }
  data = data.first(head->length);
  return Bytes(data.begin(), data.end());
}

Result<Bytes> writeLongValue(Pager& pager, const ColumnDef& column, ByteSpan value) {
  const format::LongValueFormat& layout = pager.version().longValue;
  if (value.size() > format::kLongValueLengthMask)
    return refuse(base::ErrorCode::InvalidValue, "the text is too long for the column");
  if (value.size() <= layout.maxInline) {
    Bytes field = encodeHead(value.size(), LongValueForm::Inline, {});
    field.insert(field.end(), value.begin(), value.end());
    return field;
  }
  auto space = spaceOf(pager, column);
  if (!space) return Failure(space.error());
  const bool oneRow = value.size() <= layout.maxRow;
  auto first =
      oneRow ? space->insert(value, SlotState::Row) : writeChain(*space, layout.maxRow, value);
  if (!first) return Failure(first.error());
  return encodeHead(value.size(), oneRow ? LongValueForm::OneRow : LongValueForm::Chain, *first);
}

Result<std::vector<RowPointer>> longValueRows(const Pager& pager, ByteSpan field) {
  std::vector<RowPointer> rows;
  if (field.empty()) return rows;
  auto head = parseHead(field);
  if (!head) return Failure(head.error());
  if (head->form == LongValueForm::OneRow) {
    auto piece = readPiece(pager, head->first);
    if (!piece) return Failure(piece.error());
    rows.push_back(head->first);
  } else if (head->form == LongValueForm::Chain) {
    auto done = walkChain(pager, *head, [&](RowPointer where, ByteSpan) { rows.push_back(where); });
    if (!done) return Failure(done.error());
  }
  return rows;
}

Result<void> eraseLongValue(Pager& pager, const ColumnDef& column, ByteSpan field) {
  auto rows = longValueRows(pager, field);
  if (!rows) return Failure(rows.error());
  if (rows->empty()) return {};
  auto space = spaceOf(pager, column);
  if (!space) return Failure(space.error());
  for (const RowPointer row : *rows)
    if (auto done = space->erase(row); !done) return done;
  return {};
}

}  // namespace jet
