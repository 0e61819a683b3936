// The configuration file: the whole configuration of an ECU and a person's notes as an XML text.
// Pure but for reading and writing the file itself; nothing here talks to an ECU. Any thread may
// call the functions; none of them looks at the process's locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "config/ConfigurationBlock.h"
#include "platform/Message.h"

namespace zelorgas {

inline constexpr std::string_view kConfigurationExtension = ".fob";
inline constexpr std::string_view kConfigurationRoot = "GASECUConfiguration";
inline constexpr std::string_view kConfigurationVersion = "1.00";
// In bytes. A configuration has 13 KB and the notes; what is larger is none.
inline constexpr std::uintmax_t kLargestConfiguration = 4U << 20U;

// What was found in a file. Only a usable one may go to an ECU.
struct LoadedConfiguration {
  // The block that the file was read over, with what the file gives, by the arithmetic of loading:
  // it cuts decimals off, so that 2.01 becomes 200.
  ConfigurationBlock block{};
  // The same with the word that each decimal number is nearest to, 201: the number that the file
  // shows.
  ConfigurationBlock shown{};
  // A bit is set where the file gives that bit of the block.
  ConfigurationBlock given{};
  std::string notes;  // UTF-8; older files may have them in a code page, which is taken for Latin-1

  // Why it cannot be loaded, in words; empty when it can.
  std::vector<Message> faults;
  // What is odd in it and does not hinder loading: a parameter that is missing and keeps its value,
  // a list that is too short, a number that was cut to 16 bits.
  std::vector<Message> remarks;
  // What the XML text suffers from, one finding a line; a file that was cut off says it here. Empty
  // when it is sound.
  Message damage;

  [[nodiscard]] bool Usable() const { return faults.empty(); }
  // What an ECU that holds `base` is to hold when the file is loaded into it.
  [[nodiscard]] ConfigurationBlock Over(const ConfigurationBlock& base) const;
};

// The text of the file. `routing_map` says which of the two maps (0 or 1) it carries; `notes` is
// UTF-8, and made so where it is not.
[[nodiscard]] std::string ConfigurationText(const ConfigurationBlock& block,
                                            std::size_t routing_map, std::string_view notes);

// Reads such a text over `base`, whose words stay where the file says nothing. The file's routing
// map goes to map number `routing_map`.
[[nodiscard]] LoadedConfiguration ReadConfigurationText(std::string text,
                                                        const ConfigurationBlock& base,
                                                        std::size_t routing_map);

// Writes the file, and the folders on the way to it that do not exist. False, with the reason in
// `problem`, when it could not: what was at `file` is then still there, unless the reason says that
// the new file is and may not outlive a power failure.
[[nodiscard]] bool WriteConfigurationFile(const std::filesystem::path& file,
                                          const ConfigurationBlock& block, std::size_t routing_map,
                                          std::string_view notes, Message& problem);

// Reads the file over `base`. A file that cannot be read, or is too large, is a fault.
[[nodiscard]] LoadedConfiguration ReadConfigurationFile(const std::filesystem::path& file,
                                                        const ConfigurationBlock& base,
                                                        std::size_t routing_map);

// The notes of a file; empty when it has none or cannot be read.
[[nodiscard]] std::string ReadNotes(const std::filesystem::path& file);

}  // namespace zelorgas
