#include "app/BackupProcedure.h"

#include <system_error>

#include "app/LoadProcedure.h"
#include "config/ConfigurationFile.h"
#include "config/StoragePaths.h"

namespace zelorgas {

std::filesystem::path NewBackupFile(const std::filesystem::path& folder) {
  const std::string name = MakeTimestampName() + "backup";
  std::filesystem::path file;
  std::error_code error;
  // Two may fall into one second, and no backup is to write over another.
  for (int number = 1; number == 1 || std::filesystem::exists(file, error); ++number) {
    std::string numbered = name;
    if (number > 1) numbered += "_" + std::to_string(number);
    file = folder / (numbered += kConfigurationExtension);
  }
  return file;
}

std::optional<std::filesystem::path> BackUpConfiguration(ClpgecuDoc& document,
                                                         const std::filesystem::path& folder,
                                                         std::size_t routing_map,
                                                         std::string_view notes, Message& problem) {
  const ModbusResult result = ReadConfigurationIntoImage(document, {});
  if (result != ModbusResult::kOk) {
    problem = document.Link().ErrorText(result);
    return std::nullopt;
  }
  const std::filesystem::path file = NewBackupFile(folder);
  if (!WriteConfigurationFile(file, document.Snapshot().block, routing_map, notes, problem)) {
    return std::nullopt;
  }
  return file;
}

}  // namespace zelorgas
