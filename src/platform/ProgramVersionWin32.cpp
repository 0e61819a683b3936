#include <windows.h>

#include <array>
#include <cwchar>
#include <vector>

#include "platform/ProgramVersion.h"
#include "platform/WideText.h"

namespace zelorgas {
namespace {

constexpr unsigned kBlock = 0x040904E4;  // U.S. English, Windows-1252
constexpr std::size_t kLongestFileName = 32768;

std::wstring ProgramFile() {
  std::wstring file(kLongestFileName, L'\0');
  file.resize(::GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size())));
  return file;
}

std::string ReadText(const std::vector<BYTE>& resource, const wchar_t* name) {
  std::array<wchar_t, 64> path{};
  std::swprintf(path.data(), path.size(), L"\\StringFileInfo\\%08x\\%ls", kBlock, name);
  void* text = nullptr;
  UINT length = 0;
  if (::VerQueryValueW(resource.data(), path.data(), &text, &length) == 0 || length == 0) return {};
  return ToUtf8(static_cast<const wchar_t*>(text));
}

}  // namespace

ProgramVersion ReadProgramVersion() {
  const std::wstring file = ProgramFile();
  DWORD unused = 0;
  std::vector<BYTE> resource(::GetFileVersionInfoSizeW(file.c_str(), &unused));
  if (resource.empty() ||
      ::GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(resource.size()),
                            resource.data()) == 0) {
    return {};
  }
  return {ReadText(resource, L"ProductName"), ReadText(resource, L"FileVersion")};
}

}  // namespace zelorgas
