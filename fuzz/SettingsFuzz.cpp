#include "FuzzInput.h"
#include "charts/ChartSettings.h"

// The charts' settings file, holding anything: what is understood of it is written and read alike.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const charts::ChartSettings settings =
      charts::parseSettings(base::asText(base::ByteSpan(data, size)));
  fuzz::require(charts::parseSettings(charts::settingsLine(settings)) == settings,
                "settings survive writing");
  return 0;
}
