// One page of the error list: the entries of one bank, the one that is selected and its
// description. It asks before it deletes and hands the request to its owner, who talks to the ECU.
// The window's page shows what stands here. User-interface thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/MessageBoxes.h"
#include "errors/ErrorTexts.h"
#include "platform/Message.h"

namespace zelorgas {

inline constexpr FixedText kDeleteErrorQuestion = FixedText::Of("Delete error?");
inline constexpr FixedText kDeleteAllErrorsQuestion = FixedText::Of("Delete all errors?");

// Who holds the pages. When the ECU has done what was asked the owner takes the entries away from
// the pages, otherwise it has told the person.
class ErrorOwner {
 public:
  virtual ~ErrorOwner() = default;
  // True when the ECU has done it.
  virtual bool DeleteError(std::uint16_t code, ErrorBank bank) = 0;
  // Of both banks.
  virtual bool DeleteAllErrors() = 0;
};

class ErrorPage {
 public:
  struct Entry {
    std::uint32_t item;   // code in the high 16 bits, text number of the description in the low
    std::uint16_t count;  // how often it has occurred
    std::string text;     // what the list shows: count and name

    [[nodiscard]] std::uint16_t Code() const { return static_cast<std::uint16_t>(item >> 16U); }
    [[nodiscard]] std::uint16_t Description() const {
      return static_cast<std::uint16_t>(item & 0xFFFFU);
    }
  };

  explicit ErrorPage(ErrorBank bank) : bank_(bank) {}

  // Null: none. The owner outlives the page or takes itself away.
  void SetOwner(ErrorOwner* owner) { owner_ = owner; }

  // Appends an entry. Nothing happens for a code that the bank does not have.
  void addError(std::uint16_t code, std::uint16_t count);
  // Takes the first entry of this code away; nothing is selected or described then.
  void removeError(std::uint16_t code);
  void clear();

  [[nodiscard]] ErrorBank Bank() const { return bank_; }
  [[nodiscard]] const std::vector<Entry>& Entries() const { return entries_; }
  // The page's tab stands out while there are entries.
  [[nodiscard]] bool Highlighted() const { return !entries_.empty(); }

  // A row that does not exist selects nothing.
  void Select(std::optional<std::size_t> row);
  [[nodiscard]] std::optional<std::size_t> Selected() const { return selected_; }
  // Of the selected entry; empty without one.
  [[nodiscard]] FixedText Description() const { return description_; }

  // What the page's menu does. Each asks, and says why it does nothing; true when the owner has
  // done it.
  bool DeleteSelected(MessageBoxes& boxes);
  bool DeleteAll(MessageBoxes& boxes);

 private:
  const ErrorBank bank_;
  ErrorOwner* owner_ = nullptr;
  std::vector<Entry> entries_;
  std::optional<std::size_t> selected_;
  FixedText description_;
};

// Both pages, the temporary one first.
class ErrorSheet {
 public:
  [[nodiscard]] ErrorPage& Page(ErrorBank bank) { return pages_[static_cast<std::size_t>(bank)]; }
  [[nodiscard]] const std::array<ErrorPage, 2>& Pages() const { return pages_; }

  void SetOwner(ErrorOwner* owner);
  void clear();

 private:
  std::array<ErrorPage, 2> pages_{ErrorPage(ErrorBank::kTemporary),
                                  ErrorPage(ErrorBank::kPermanent)};
};

}  // namespace zelorgas
