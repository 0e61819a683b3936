// Compares the translations with the texts that lupdate finds in the sources.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <QXmlStreamReader>
#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::IsEmpty;

struct Translation {
  QStringList forms;  // one; of a text with a count, one for each form of the noun
  bool finished = true;
  bool counts = false;
};
using Key = std::pair<QString, QString>;  // context, text
using Translations = std::map<Key, Translation>;

Translation ReadTranslation(QXmlStreamReader& xml, bool counts) {
  Translation read;
  read.counts = counts;
  read.finished = !xml.attributes().hasAttribute("type");
  if (!counts) {
    read.forms += xml.readElementText();
    return read;
  }
  while (xml.readNextStartElement()) read.forms += xml.readElementText();
  return read;
}

Translations ReadTexts(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  QXmlStreamReader xml(&file);
  Translations texts;
  QString context;
  QString source;
  bool counts = false;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    const QString element = xml.name().toString();
    if (element == "name") {
      context = xml.readElementText();
      // lupdate names this class now with its namespace and now without.
      if (context == "zelorgas::FixedText") context = "FixedText";
    } else if (element == "message") {
      counts = xml.attributes().value("numerus") == QLatin1String("yes");
    } else if (element == "source") {
      source = xml.readElementText();
    } else if (element == "translation") {
      texts[{context, source}] = ReadTranslation(xml, counts);
    }
  }
  EXPECT_FALSE(xml.hasError()) << path.toStdString() << ": " << xml.errorString().toStdString();
  EXPECT_FALSE(texts.empty()) << path.toStdString();
  return texts;
}

Translations OfTheSources() { return ReadTexts(ZELORGAS_SOURCE_TEXTS); }
Translations Bulgarian() { return ReadTexts(ZELORGAS_TRANSLATIONS "/zelorgas_bg.ts"); }
Translations BulgarianOfQt() { return ReadTexts(ZELORGAS_TRANSLATIONS "/qt_bg.ts"); }

std::string Name(const Key& key) { return (key.first + ": " + key.second).toStdString(); }

QStringList Found(const QString& text, const char* pattern) {
  // The letter of a mnemonic is the language's own.
  const QRegularExpression expression(pattern, QRegularExpression::UseUnicodePropertiesOption);
  QStringList found;
  QRegularExpressionMatchIterator match = expression.globalMatch(text);
  while (match.hasNext()) found += match.next().captured();
  found.sort();
  return found;
}

// What a translation has to have as its original has it.
struct Shape {
  const char* what;
  const char* pattern;
};
constexpr auto kShapes = std::to_array<Shape>({
    {"places for values", "%(?:\\d|n)"},
    {"line breaks", "\n"},
    {"one mnemonic", "&(?=\\w)"},
    {"blanks at the ends", "^ +| +$"},
    {"what it ends with", "(?:\\.\\.\\.|[:!?.])\\s*$"},
    {"file filters", "\\(\\*[^)]*\\)"},
});

std::vector<std::string> Misshapen(const Translations& texts) {
  std::vector<std::string> wrong;
  for (const auto& [key, translation] : texts) {
    for (const QString& form : translation.forms) {
      for (const Shape& shape : kShapes) {
        if (Found(key.second, shape.pattern) != Found(form, shape.pattern)) {
          wrong.push_back(Name(key) + " / " + shape.what);
        }
      }
    }
  }
  return wrong;
}

TEST(Translations, EveryTextOfTheSourcesIsTranslatedAndNoOther) {
  const Translations sources = OfTheSources();
  const Translations translated = Bulgarian();
  std::vector<std::string> missing;
  for (const auto& [key, unused] : sources) {
    const auto found = translated.find(key);
    const bool complete = found != translated.end() && found->second.finished &&
                          found->second.forms.size() == (found->second.counts ? 2 : 1) &&
                          !found->second.forms.contains(QString());
    if (!complete) missing.push_back(Name(key));
  }
  EXPECT_THAT(missing, IsEmpty()) << "see \"update_translations\" in CONTRIBUTING.md";
  std::vector<std::string> stale;
  for (const auto& [key, unused] : translated) {
    if (!sources.contains(key)) stale.push_back(Name(key));
  }
  EXPECT_THAT(stale, IsEmpty());
}

// Qt looks a text up by the name of its class with the namespace. Another context is a text that
// lupdate has found and the program never will.
TEST(Translations, EveryContextIsOneOfTheProgram) {
  std::vector<std::string> strange;
  for (const auto& [key, unused] : OfTheSources()) {
    const QString& context = key.first;
    if (context != "FixedText" && !context.startsWith("zelorgas::")) strange.push_back(Name(key));
  }
  EXPECT_THAT(strange, IsEmpty());
}

TEST(Translations, HaveTheShapeOfTheirOriginals) {
  EXPECT_THAT(Misshapen(Bulgarian()), IsEmpty());
  EXPECT_THAT(Misshapen(BulgarianOfQt()), IsEmpty());
}

// A word of four Latin letters is English, but for names, keys and what is typed.
TEST(Translations, LeaveNothingInEnglish) {
  const QRegularExpression names(
      "backup|Ctrl|Doctype|Enter|GridRow|Home|Modbus|Outlet|RegOpenKeyEx|Windows( sockets)?|"
      "zelorgas( \\[[a-z]+\\])+|ZelorGAS");
  const QRegularExpression english("[A-Za-z][a-z]{3}");
  std::vector<std::string> left;
  for (const Translations& texts : {Bulgarian(), BulgarianOfQt()}) {
    for (const auto& [key, translation] : texts) {
      if (translation.forms.join(' ').remove(names).contains(english)) left.push_back(Name(key));
    }
  }
  EXPECT_THAT(left, IsEmpty());
}

}  // namespace
