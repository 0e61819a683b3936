// Firmware images: which there are, and their bytes. An image is the raw content of the application
// flash from its first address on, without any header. Any thread may call any of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/Identification.h"
#include "platform/Message.h"

namespace zelorgas {

// Below the working folder.
inline constexpr std::string_view kFirmwareFolder = "firmware";

struct FirmwareImage {
  std::filesystem::path path;
  std::optional<Version> software;  // when the file's name carries it
  // What the list of versions shows: "00.39"; with the file's name behind it where two images would
  // show the same, the name alone where it carries no version.
  std::string text;
};

// The files P042*.ebi of `folder`, the newest version first. Empty when there is no such folder.
[[nodiscard]] std::vector<FirmwareImage> FindFirmwareImages(
    const std::filesystem::path& folder = kFirmwareFolder);

inline constexpr FixedText kNoImage =
    FixedText::Of("Cannot find firmware for the selected version!");
inline constexpr FixedText kImageUnreadable =
    FixedText::Of("The firmware image could not be read!\nNothing has been erased.");
inline constexpr FixedText kImageEmpty =
    FixedText::Of("The firmware image is empty!\nNothing has been erased.");
inline constexpr FixedText kImageTooLarge =
    FixedText::Of("The firmware image is too large for this ECU!\nNothing has been erased.");
inline constexpr FixedText kImageChanged = FixedText::Of(
    "The firmware image has changed while it was being read!\nNothing has been erased. Please try "
    "again.");

// More than any ECU's flash; a larger file is not read.
inline constexpr std::size_t kLargestImage = std::size_t{16} * 1024 * 1024;

struct ImageContent {
  std::vector<std::uint8_t> bytes;  // at least one when there is no problem
  FixedText problem;                // what to tell the person; empty: none
};

// All bytes of the image. While they are read nobody else may open the file, where the system can
// promise that; elsewhere a change of the file's size or time during the reading is noticed.
[[nodiscard]] ImageContent ReadFirmwareImage(const std::filesystem::path& image);

}  // namespace zelorgas
