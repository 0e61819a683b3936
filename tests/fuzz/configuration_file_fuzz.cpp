// Any text as a configuration file: reading it is memory-safe, leaves alone what it does not say,
// and a usable one that is stored and read again gives the same.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "config/BlockComparison.h"
#include "config/ConfigurationFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using zelorgas::LoadedConfiguration;
  zelorgas::ConfigurationBlock base{};
  base.fill(0x5A00);
  const std::string text(data, data + size);
  const LoadedConfiguration file = zelorgas::ReadConfigurationText(text, base, 1);
  if (file.Over(base) != file.block) std::abort();
  // Storing takes many times as long as reading.
  constexpr std::size_t kOneIn = 16;
  if (!file.Usable() || size % kOneIn != 0) return 0;
  const LoadedConfiguration again = zelorgas::ReadConfigurationText(
      zelorgas::ConfigurationText(file.shown, 1, file.notes), base, 1);
  if (!again.Usable() || !again.damage.empty() || again.notes != file.notes) std::abort();
  // A thousandth of a millisecond is lost, and nothing else; what the text lacks has been stored.
  for (const zelorgas::BlockDifference& difference : zelorgas::CompareFiles(file, again)) {
    if (!difference.second_raw) std::abort();
    if (difference.first_raw && difference.cell->form != zelorgas::CellForm::kThousandths) {
      std::abort();
    }
  }
  return 0;
}
