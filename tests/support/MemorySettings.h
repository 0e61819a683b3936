// A settings store that lasts as long as the test. One thread at a time.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <variant>

#include "platform/SettingsStore.h"

namespace zelorgas {

class MemorySettings final : public SettingsStore {
 public:
  // From now on every write fails, as in a store that could not be opened.
  void RefuseWrites() { refuse_ = true; }

  int ReadInteger(std::string_view section, std::string_view key, int fallback) const override {
    return Read<int>(section, key, fallback);
  }
  std::string ReadString(std::string_view section, std::string_view key,
                         std::string_view fallback) const override {
    return Read<std::string>(section, key, std::string(fallback));
  }
  bool WriteInteger(std::string_view section, std::string_view key, int value) override {
    return Write(section, key, value);
  }
  bool WriteString(std::string_view section, std::string_view key,
                   std::string_view value) override {
    return Write(section, key, std::string(value));
  }

 private:
  using Name = std::pair<std::string, std::string>;
  using Value = std::variant<int, std::string>;

  template <typename T>
  T Read(std::string_view section, std::string_view key, T fallback) const {
    const auto found = values_.find(Name(section, key));
    const T* const value = found == values_.end() ? nullptr : std::get_if<T>(&found->second);
    return value == nullptr ? fallback : *value;
  }
  bool Write(std::string_view section, std::string_view key, Value value) {
    if (!refuse_) values_[Name(section, key)] = std::move(value);
    return !refuse_;
  }

  std::map<Name, Value> values_;
  bool refuse_ = false;
};

}  // namespace zelorgas
