#include "sim/EcuSimOptions.h"

#include <algorithm>
#include <string_view>

#include "sim/ParseWhole.h"

namespace zelorgas {
namespace {

// "0.39"
bool ParseVersion(std::string_view text, std::uint8_t& major, std::uint8_t& minor) {
  const std::size_t dot = text.find('.');
  std::uint8_t first = 0;
  std::uint8_t second = 0;
  if (dot == std::string_view::npos || !ParseWhole(text.substr(0, dot), first) ||
      !ParseWhole(text.substr(dot + 1), second)) {
    return false;
  }
  major = first;
  minor = second;
  return true;
}

// The option's value is taken when it is understood.
bool TakeValue(std::string_view option, const std::string& value, EcuSimOptions& options) {
  if (option == "--version") {
    return ParseVersion(value, options.ecu.software_major, options.ecu.software_minor);
  }
  if (option == "--hardware") {
    return ParseVersion(value, options.ecu.hardware_major, options.ecu.hardware_minor);
  }
  if (option == "--seed") {
    const bool understood = ParseWhole(value, options.ecu.seed);
    options.line.seed = options.ecu.seed;
    return understood;
  }
  if (option == "--fault") {
    LineFaults check;
    options.faults.push_back(value);
    return check.Add(value);
  }
  std::string& text = option == "--link"  ? options.link
                      : option == "--log" ? options.log
                                          : options.port;
  text = value;
  return !value.empty();
}

bool TakesValue(std::string_view option) {
  return option == "--version" || option == "--hardware" || option == "--seed" ||
         option == "--fault" || option == "--link" || option == "--log" || option == "--port";
}

}  // namespace

std::string ParseEcuSimOptions(std::span<const std::string> words, EcuSimOptions& options) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "--help") {
      options.help = true;
    } else if (word == "--bootloader") {
      options.ecu.in_bootloader = true;
    } else if (word == "--no-pace") {
      options.line.paced = false;
    } else if (word == "--no-echo") {
      options.line.echo = false;
    } else if (TakesValue(word)) {
      if (i + 1 == words.size()) return word + " needs a value";
      const std::string& value = words[++i];
      if (!TakeValue(word, value, options)) {
        return std::string("'").append(value).append("' is no value for ").append(word);
      }
    } else {
      return "'" + word + "' is not an option";
    }
  }
  return "";
}

std::string EcuSimUsage() {
  std::string text =
      "usage: zelorgas-ecusim [--link PATH] [--version 0.39] [--hardware 1.2] [--bootloader]\n"
      "                       [--no-pace] [--no-echo] [--fault KIND[=N]:WHEN]... [--seed N]\n"
      "                       [--log FILE] [--port PORT]\n"
      "\n"
      "Serves a simulated ECU on a serial port: a pseudo-terminal, whose path is the first line\n"
      "of output, or the existing PORT. Ends with a summary on an interrupt.\n"
      "\n"
      "  --link PATH      makes PATH a symbolic link to the port\n"
      "  --version M.N    firmware version\n"
      "  --hardware M.N   hardware version\n"
      "  --bootloader     starts in the bootloader\n"
      "  --no-pace        answers at once instead of at the pace of 19200 baud\n"
      "  --no-echo        does not give the sender's characters back\n"
      "  --seed N         another drive, other chances\n"
      "  --log FILE       writes every request and its answer\n"
      "\n"
      "WHEN is the number of a request, counted from 1; everyN; or pX, a probability.\n"
      "KIND, with what N means and its default:\n";
  for (const FaultName& fault : FaultNames()) {
    std::string line = "  " + std::string(fault.name);
    if (fault.default_parameter != 0) line += "=" + std::to_string(fault.default_parameter);
    line.resize(std::max<std::size_t>(line.size() + 1, 24), ' ');
    text += line + std::string(fault.meaning) + "\n";
  }
  return text;
}

}  // namespace zelorgas
