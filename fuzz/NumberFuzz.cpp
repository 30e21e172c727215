#include <cmath>
#include <limits>

#include "FuzzInput.h"
#include "base/GermanDate.h"
#include "base/GermanNumber.h"
#include "base/Money.h"
#include "base/TextCodec.h"

// What someone may type into a field: a number that is understood is shown so that it is understood
// again as the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = base::asText(base::ByteSpan(data, size));
  if (const auto number = base::parseNumber(text)) {
    fuzz::require(std::isfinite(*number), "numbers are finite");
    const auto again = base::parseNumber(base::formatNumber(*number, 4));
    fuzz::require(again.has_value(), "a shown number is a number");
    // Half a digit of the four decimals, and what a double of that size cannot tell apart.
    const double apart = 0.5e-4 + 2 * std::numeric_limits<double>::epsilon() * std::abs(*number);
    if (std::abs(*number) < 1e9)
      fuzz::require(std::abs(*again - *number) <= apart, "a shown number is the number");
    if (const auto money = base::Money::tryRoundHalfEven(*number))
      fuzz::require(base::parseNumber(base::formatMoney(*money)).has_value(),
                    "a shown amount is a number");
  }
  if (const auto date = base::parseDate(text))
    fuzz::require(date->ok(), "the calendar has every date that is taken");
  const std::string utf8 = base::fromWindows1252(text);
  fuzz::require(base::toWindows1252(utf8) == text, "every byte survives the code page");
  const std::string clean = base::fromUtf32(base::toUtf32(text));
  fuzz::require(base::fromUtf16(base::toUtf16(clean)) == clean, "clean text survives UTF-16");
  return 0;
}
