#include "errors/ErrorPage.h"

#include <algorithm>
#include <cstdio>

namespace zelorgas {
namespace {

constexpr FixedText kNothingSelected = FixedText::Of("Please, select an item/error!");
constexpr FixedText kListEmpty = FixedText::Of("There are no errors!\nThe list is empty!");
constexpr FixedText kNoOwner = FixedText::Of("Cannot delete the selected error!");

// " 005  Coolant Temperature too low": the count takes six characters, whatever it is.
std::string EntryText(std::uint16_t count, std::string_view name) {
  constexpr std::size_t kCountColumn = 6;
  std::array<char, 16> digits{};
  std::snprintf(digits.data(), digits.size(), " %.03d", count);
  std::string text(digits.data());
  text.resize(std::max(text.size(), kCountColumn), ' ');
  return text.append(name);
}

}  // namespace

void ErrorPage::addError(std::uint16_t code, std::uint16_t count) {
  const ERRREC* const definition = FindErrorDefinition(bank_, code);
  if (definition == nullptr) return;
  const std::uint32_t item = static_cast<std::uint32_t>(code) << 16U | definition->description;
  entries_.push_back({item, count, EntryText(count, ErrorText(definition->name))});
}

void ErrorPage::removeError(std::uint16_t code) {
  const auto entry = std::ranges::find(entries_, code, &Entry::Code);
  if (entry != entries_.end()) entries_.erase(entry);
  Select(std::nullopt);
}

void ErrorPage::clear() {
  entries_.clear();
  Select(std::nullopt);
}

void ErrorPage::Select(std::optional<std::size_t> row) {
  description_ = {};
  selected_ = row && *row < entries_.size() ? row : std::nullopt;
  if (selected_) description_ = ErrorText(entries_[*selected_].Description());
}

bool ErrorPage::DeleteSelected(MessageBoxes& boxes) {
  if (!boxes.Ask(kDeleteErrorQuestion)) return false;
  if (!selected_) {
    boxes.Inform(kNothingSelected, MessageIcon::kExclamation);
    return false;
  }
  if (owner_ == nullptr) {
    boxes.Inform(kNoOwner, MessageIcon::kExclamation);
    return false;
  }
  return owner_->DeleteError(entries_[*selected_].Code(), bank_);
}

bool ErrorPage::DeleteAll(MessageBoxes& boxes) {
  if (!boxes.Ask(kDeleteAllErrorsQuestion)) return false;
  if (entries_.empty()) {
    boxes.Inform(kListEmpty, MessageIcon::kExclamation);
    return false;
  }
  if (owner_ == nullptr) {
    boxes.Inform(kNoOwner, MessageIcon::kExclamation);
    return false;
  }
  return owner_->DeleteAllErrors();
}

void ErrorSheet::SetOwner(ErrorOwner* owner) {
  for (ErrorPage& page : pages_) page.SetOwner(owner);
}

void ErrorSheet::clear() {
  for (ErrorPage& page : pages_) page.clear();
}

}  // namespace zelorgas
