#include <algorithm>
#include <cmath>

#include "analysis/Tariffs.h"
#include "base/CsvRecord.h"
#include "base/GermanDate.h"

namespace analysis {
namespace {

// Fields of a record, by position.
enum Field {
  EnergyName,
  Name,
  Price,
  NightPrice,  // -1 where there is none
  Net,
  BaseFee,
  FeePerMonth,
  Bonus,
  GuaranteedUntil,
  ContractEnd,
};

std::optional<Offer> offerIn(std::string_view line) {
  const base::RecordReader record(line);
  const auto energy = record.text(EnergyName);
  const auto name = record.text(Name);
  const auto price = record.number(Price);
  if (!energy || !name || !price || name->empty()) return std::nullopt;
  Offer offer;
  if (*energy == nameOf(Energy::Gas))
    offer.energy = Energy::Gas;
  else if (*energy != nameOf(Energy::Electricity))
    return std::nullopt;
  offer.name = *name;
  offer.price = *price;
  if (const auto night = record.number(NightPrice); night && *night >= 0) offer.nightPrice = night;
  offer.net = record.boolean(Net).value_or(false);
  offer.baseFee = record.number(BaseFee).value_or(0);
  offer.feePerMonth = record.boolean(FeePerMonth).value_or(false);
  offer.bonus = record.number(Bonus).value_or(0);
  offer.guaranteedUntil = record.text(GuaranteedUntil).value_or("");
  offer.contractEnd = record.text(ContractEnd).value_or("");
  return offer;
}

// A quote would end the field.
std::string quotable(std::string text) {
  std::replace(text.begin(), text.end(), '"', '\'');
  return text;
}

std::string recordOf(const Offer& offer) {
  return base::RecordWriter()
      .text(nameOf(offer.energy))
      .text(quotable(offer.name))
      .number(offer.price)
      .number(offer.nightPrice.value_or(-1))
      .boolean(offer.net)
      .number(offer.baseFee)
      .boolean(offer.feePerMonth)
      .number(offer.bonus)
      .text(quotable(offer.guaranteedUntil))
      .text(quotable(offer.contractEnd))
      .line();
}

}  // namespace

base::Result<OfferFile> readOffers(base::FileSystem& files, const std::string& folder) {
  const auto content = files.readText(folder + std::string(kOfferFile));
  if (!content && content.error().code == base::ErrorCode::NotFound) return OfferFile();
  if (!content) return base::Failure(content.error());
  OfferFile file;
  for (std::string_view rest = *content; !rest.empty();) {
    const std::size_t end = rest.find_first_of("\r\n");
    const std::string_view line = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    if (line.empty()) continue;
    if (auto offer = offerIn(line))
      file.offers.push_back(std::move(*offer));
    else
      file.otherLines.emplace_back(line);
  }
  return file;
}

base::Result<void> writeOffers(base::FileSystem& files, const std::string& folder,
                               const OfferFile& file) {
  std::string content;
  for (const Offer& offer : file.offers) content += recordOf(offer);
  for (const std::string& line : file.otherLines) content += line + "\r\n";
  return files.replaceFile(folder + std::string(kOfferFile), base::asBytes(content));
}

}  // namespace analysis
