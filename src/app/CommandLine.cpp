#include "app/CommandLine.h"

#include <algorithm>
#include <array>

#include "platform/IgnoreCase.h"

namespace zelorgas {
namespace {

constexpr std::string_view kAdmin = "admin";
constexpr std::string_view kDemo = "demo";
constexpr std::string_view kDocuments = "documents";
constexpr std::array<std::string_view, 2> kFileExtensions = {".fob", ".osc"};
constexpr FixedText kTwoFiles = FixedText::Of(
    "Only one file can be opened, not also \"%1\".\n"
    "Usage: zelorgas [admin] [demo] [documents] [FILE.fob|FILE.osc]");
constexpr FixedText kUnknown = FixedText::Of(
    "Unknown argument \"%1\".\n"
    "Usage: zelorgas [admin] [demo] [documents] [FILE.fob|FILE.osc]");

bool IsDocument(std::string_view argument) {
  return std::ranges::any_of(kFileExtensions, [argument](std::string_view extension) {
    return argument.size() > extension.size() && EndsWithIgnoringCase(argument, extension);
  });
}

}  // namespace

bool IsAdminSwitch(std::string_view argument) {
  if (argument.starts_with('-') || argument.starts_with('/')) argument.remove_prefix(1);
  return EqualIgnoringCase(argument, kAdmin);
}

CommandLine ParseCommandLine(std::span<const std::string> arguments) {
  CommandLine line;
  for (const std::string& argument : arguments) {
    if (IsAdminSwitch(argument)) {
      line.admin = true;
    } else if (argument == kDemo) {
      line.demo = true;
    } else if (argument == kDocuments) {
      line.documents = true;
    } else if (IsDocument(argument) && line.file.empty()) {
      line.file = argument;
    } else if (line.problem.empty()) {
      line.problem = {IsDocument(argument) ? kTwoFiles : kUnknown, argument};
    }
  }
  return line;
}

}  // namespace zelorgas
