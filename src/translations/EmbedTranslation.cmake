# cmake -D FROM=texts.qm -D TO=texts.cpp -P EmbedTranslation.cmake: the compiled texts as a source.
file(READ ${FROM} bytes HEX)
string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
string(REPEAT "." 80 line)
string(REGEX REPLACE "(${line})" "\\1\n    " bytes "${bytes}")
file(WRITE ${TO} "// The texts of a language, as lrelease has compiled them.
namespace {
const unsigned char texts[] = {
    ${bytes}
};
}  // namespace

extern \"C\" const unsigned char* ZelorGasTranslation(int* size) {
  *size = static_cast<int>(sizeof texts);
  return texts;
}
")
