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

std::filesystem::path SecondMapFile(const std::filesystem::path& backup) {
  std::filesystem::path file = backup;
  file.replace_extension();
  return (file += "_map2") += kConfigurationExtension;
}

bool WriteBackup(const std::filesystem::path& backup, const ConfigurationBlock& block,
                 std::string_view notes, Message& problem) {
  return WriteConfigurationFile(backup, block, 0, notes, problem) &&
         WriteConfigurationFile(SecondMapFile(backup), block, 1, notes, problem);
}

std::optional<std::filesystem::path> BackUpConfiguration(ClpgecuDoc& document,
                                                         const std::filesystem::path& folder,
                                                         std::string_view notes, Message& problem) {
  const ModbusResult result = ReadConfigurationIntoImage(document, {});
  if (result != ModbusResult::kOk) {
    problem = document.Link().ErrorText(result);
    return std::nullopt;
  }
  const std::filesystem::path file = NewBackupFile(folder);
  if (!WriteBackup(file, document.Snapshot().block, notes, problem)) return std::nullopt;
  return file;
}

}  // namespace zelorgas
