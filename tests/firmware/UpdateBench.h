// An update on the bench: document, simulated ECU, virtual clock, and an image file of its own.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "firmware/FirmwareDownload.h"
#include "firmware/LinkPreparation.h"
#include "support/ConnectedDocument.h"
#include "support/ScriptedBoxes.h"

namespace zelorgas {

class ImageFile {
 public:
  explicit ImageFile(std::vector<std::uint8_t> bytes) { Fill(std::move(bytes)); }
  ImageFile(const ImageFile&) = delete;
  ImageFile& operator=(const ImageFile&) = delete;
  ~ImageFile() { std::filesystem::remove(path); }

  void Fill(std::vector<std::uint8_t> bytes) {
    content = std::move(bytes);
    std::ofstream(path, std::ios::binary) << std::string(content.begin(), content.end());
  }
  // Whether the ECU's flash is the image, and blank behind it.
  bool IsIn(const SimulatedEcu& ecu) const {
    std::vector<std::uint8_t> expected = content;
    expected.resize(Bootloader::kApplicationSize, 0xFF);
    return ecu.Flash() == expected;
  }

  const std::filesystem::path path =
      testing::TempDir() + "zelorgas-image-" + std::to_string(std::random_device{}()) + ".ebi";
  std::vector<std::uint8_t> content;
};

struct UpdateBench {
  explicit UpdateBench(SimulatedEcuOptions options = {})
      : ecu(clock, options), document(SimulatedPort(line, clock), clock, status) {
    boxes.answer = true;
    identity.revision = "SV 0.39@HV 1.2";
    identity.software = {0, 39};
    identity.serial = 123456;
  }
  FirmwareDownload::Outcome Program(const ImageFile& image, FirmwareHooks hooks = {}) {
    return FirmwareDownload(document, boxes, std::move(hooks)).Program(image.path, identity);
  }
  FirmwareDownload::Outcome Erase() { return FirmwareDownload(document, boxes).Erase(identity); }
  // As whoever starts an update once more.
  bool FindAgain() {
    identity = {};
    return FindUpdateTarget(document, identity).Ok();
  }
  bool FlashMode() {
    bool on = false;
    ecu.WithBootloader([&](Bootloader& boot) { on = boot.Coil(Bootloader::kFlashModeCoil); });
    return on;
  }

  VirtualClock clock;
  SimulatedEcu ecu;
  SimulatedLine line{ecu, clock, {.paced = false}};
  StatusRecorder status;
  ClpgecuDoc document;
  ScriptedBoxes boxes;
  EcuIdentity identity;
};

}  // namespace zelorgas
