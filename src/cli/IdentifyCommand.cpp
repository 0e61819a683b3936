#include "cli/CliConnection.h"
#include "cli/Commands.h"
#include "cli/Text.h"

namespace zelorgas {
namespace {

std::string Dotted(Version version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor);
}

// The revision text of a bootloader need not carry the hardware version.
bool HardwareKnown(const EcuIdentity& identity) {
  return !identity.bootloader || identity.hardware != Version{};
}

std::string_view ModeOf(const EcuIdentity& identity) {
  return identity.bootloader ? "bootloader" : "application";
}

JsonWriter ToJson(const EcuIdentity& identity) {
  JsonWriter document;
  document.BeginObject();
  document.Key("vendor").String(identity.vendor);
  document.Key("product").String(identity.product);
  document.Key("revision").String(identity.revision);
  document.Key("software").String(Dotted(identity.software));
  document.Key("hardware");
  HardwareKnown(identity) ? document.String(Dotted(identity.hardware)) : document.Null();
  document.Key("serial");
  identity.serial ? document.String(FormatSerialNumber(*identity.serial)) : document.Null();
  document.Key("board");
  if (identity.board) {
    document.BeginArray();
    for (const std::uint16_t word : *identity.board) document.Number(word);
    document.EndArray();
  } else {
    document.Null();
  }
  document.Key("mode").String(ModeOf(identity)).EndObject();
  return document;
}

void PrintText(CliSession& session, const EcuIdentity& identity) {
  constexpr std::string_view kAbsent = "------";
  std::string board;
  if (identity.board) {
    for (const std::uint16_t word : *identity.board) {
      board += (board.empty() ? "" : " ") + FormatHexWord(word);
    }
  } else {
    board = kAbsent;
  }
  session.Print("vendor:   " + PrintableText(identity.vendor));
  session.Print("product:  " + PrintableText(identity.product));
  session.Print("revision: " + PrintableText(identity.revision));
  session.Print("software: " + Dotted(identity.software));
  session.Print("hardware: " +
                (HardwareKnown(identity) ? Dotted(identity.hardware) : std::string(kAbsent)));
  session.Print("serial:   " +
                (identity.serial ? FormatSerialNumber(*identity.serial) : std::string(kAbsent)));
  session.Print("board:    " + board);
  session.Print("mode:     " + std::string(ModeOf(identity)));
}

}  // namespace

ExitStatus RunIdentify(CliSession& session, std::span<const std::string> arguments) {
  if (!arguments.empty()) return session.UsageError("identify takes no arguments");
  if (const ExitStatus status = session.SelectLink(); status != ExitStatus::kDone) return status;
  CliConnection connection(session);
  const EcuConnection::Outcome outcome = connection.Connect();
  // Who is there is worth knowing also where this program cannot work with it.
  const EcuIdentity& identity = connection.Identity();
  if (!identity.vendor.empty()) {
    if (session.Json()) {
      session.Print(ToJson(identity));
    } else {
      PrintText(session, identity);
    }
  }
  // A bootloader and an old firmware are answers to the question, not failures.
  return outcome == EcuConnection::Outcome::kFailed ? ExitStatus::kRefused : ExitStatus::kDone;
}

}  // namespace zelorgas
