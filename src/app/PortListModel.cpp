#include "app/PortListModel.h"

#include <algorithm>
#include <utility>

namespace zelorgas {
namespace {

constexpr FixedText kSimulatedText = FixedText::Of("Simulated ECU");
constexpr FixedText kTrackingFailed = FixedText::Of("Error while tracking Serial COMM Device Map!");
constexpr FixedText kOpenFailed = FixedText::Of("Error in RegOpenKeyEx!");

constexpr FixedText kInstalled = FixedText::Of("A Serial COMM Device has just been installed!");
constexpr FixedText kUninstalled = FixedText::Of("A Serial COMM Device has just been uninstalled!");

Message TextOf(const SerialPortInfo& port) {
  return Message::Verbatim(port.product.empty() ? port.name
                                                : port.name + " (" + port.product + ")");
}

}  // namespace

PortListModel::PortListModel(Lister list, std::string_view selected)
    : list_(std::move(list)), selected_(selected) {
  ReadList();
}

std::optional<std::size_t> PortListModel::Selected() const {
  const auto entry = std::ranges::find(entries_, selected_, &PortEntry::name);
  if (entry == entries_.end()) return std::nullopt;
  return static_cast<std::size_t>(entry - entries_.begin());
}

bool PortListModel::Select(std::size_t index) {
  if (index >= entries_.size()) return false;
  selected_ = entries_[index].name;
  return true;
}

std::optional<PortNotice> PortListModel::OnWatchEvent(PortWatchEvent event, bool connected) {
  if (event == PortWatchEvent::kTrackingFailed) {
    return PortNotice{kTrackingFailed, MessageIcon::kError};
  }
  if (event == PortWatchEvent::kOpenFailed) {
    return PortNotice{kOpenFailed, MessageIcon::kError};
  }
  const std::vector<PortEntry> old = entries_;
  ReadList();
  if (connected || std::ranges::equal(entries_, old, {}, &PortEntry::name, &PortEntry::name)) {
    return std::nullopt;
  }
  return PortNotice{entries_.size() < old.size() ? kUninstalled : kInstalled,
                    MessageIcon::kInformation};
}

void PortListModel::ReadList() {
  entries_.clear();
  for (const SerialPortInfo& port : list_()) entries_.push_back({port.name, TextOf(port)});
  if (selected_.empty() && !entries_.empty()) selected_ = entries_.front().name;
  entries_.push_back({std::string(kSimulatedPortName), kSimulatedText});
}

}  // namespace zelorgas
