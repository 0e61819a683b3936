// Makes the pictures of the guide:
//
//   guide_pictures [--language en|bg] [--scale FACTOR] [--window WIDTHxHEIGHT] [--all] FOLDER
//
// The window needs no display. --scale is what the system's scaling is, 1.5 for 150 %; --window the
// window's size in real pixels; --all adds what the guide does not show. Prints every text that has
// too little room. Exit status: 0 done, 1 not, or there is such a text, 2 the command line is
// wrong.
#include <QApplication>
#include <QCommandLineParser>
#include <cstdio>
#include <optional>

#include "GuideScenes.h"
#include "ui/LanguageTexts.h"

namespace {

using namespace zelorgas;

constexpr int kWrongCommandLine = 2;
constexpr qreal kPointSize = 11;  // as the program makes it

struct Wishes {
  PictureOptions pictures;
  double scale = 1;
  bool bulgarian = false;
};

std::optional<Wishes> ReadCommandLine(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.addOptions({{"language", "", "language", "en"},
                     {"scale", "", "factor", "1"},
                     {"window", "", "size", "1200x760"},
                     {"all", ""}});
  if (!parser.parse(arguments) || parser.positionalArguments().size() != 1) return std::nullopt;
  Wishes wishes;
  wishes.pictures.folder.setPath(parser.positionalArguments().constFirst());
  wishes.pictures.everything = parser.isSet("all");
  wishes.bulgarian = parser.value("language") == "bg";
  wishes.scale = parser.value("scale").toDouble();
  const QStringList size = parser.value("window").split('x');
  if (size.size() != 2 || wishes.scale < 1) return std::nullopt;
  wishes.pictures.window = QSize(size[0].toInt(), size[1].toInt()) / wishes.scale;
  return wishes;
}

}  // namespace

int main(int argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments += QString::fromLocal8Bit(argv[i]);
  const std::optional<Wishes> wishes = ReadCommandLine(arguments);
  if (!wishes || wishes->pictures.window.isEmpty() ||
      !QDir().mkpath(wishes->pictures.folder.path())) {
    std::fputs(
        "usage: guide_pictures [--language en|bg] [--scale FACTOR] [--window WIDTHxHEIGHT] [--all] "
        "FOLDER\n",
        stderr);
    return kWrongCommandLine;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("TZ", "UTC");  // of the files' times
  qputenv("QT_SCALE_FACTOR", QByteArray::number(wishes->scale));
  QApplication::setStyle("Fusion");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QFont font = QApplication::font();
  font.setPointSizeF(kPointSize);
  QApplication::setFont(font);
  LanguageTexts texts;
  if (wishes->bulgarian && !texts.Load(LanguageLibrary(kLanguageBulgarian))) {
    std::fputs("The texts in Bulgarian were not found.\n", stderr);
    return 1;
  }
  PictureOptions pictures = wishes->pictures;
  // The scenes have a working folder of their own.
  pictures.folder.makeAbsolute();
  GuideScenes scenes(std::move(pictures));
  const bool done = scenes.Run();
  for (const QString& text : scenes.CutOff()) std::printf("%s\n", qUtf8Printable(text));
  return done && scenes.CutOff().isEmpty() ? 0 : 1;
}
