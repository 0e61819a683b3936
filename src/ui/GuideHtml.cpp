#include "ui/GuideHtml.h"

#include <QRegularExpression>
#include <QStringList>

namespace zelorgas {
namespace {

const QRegularExpression& Heading() {
  static const QRegularExpression kHeading("^(#{1,3}) +(.*)$");
  return kHeading;
}
const QRegularExpression& Item() {
  static const QRegularExpression kItem("^(-|[0-9]+\\.) +(.*)$");
  return kItem;
}

QString Inline(const QString& text) {
  static const QRegularExpression kPicture("!\\[([^\\]]*)\\]\\(([^)]*)\\)");
  static const QRegularExpression kLink("\\[([^\\]]*)\\]\\(([^)]*)\\)");
  static const QRegularExpression kBold("\\*\\*(.+?)\\*\\*");
  // What stands between backquotes is left alone; every second piece does.
  const QStringList pieces = text.toHtmlEscaped().split('`');
  QString html;
  for (qsizetype i = 0; i < pieces.size(); ++i) {
    if (i % 2 == 1) {
      html += "<code>" + pieces[i] + "</code>";
      continue;
    }
    html += QString(pieces[i])
                .replace(kPicture, "<img alt=\"\\1\" src=\"\\2\">")
                .replace(kLink, "<a href=\"\\2\">\\1</a>")
                .replace(kBold, "<b>\\1</b>");
  }
  return html;
}

// The lines of a chapter from the top down; a block takes its own.
class Blocks {
 public:
  explicit Blocks(QStringList lines) : lines_(std::move(lines)) {}

  QString Html() {
    QString html;
    while (More()) html += Block();
    return html;
  }

 private:
  [[nodiscard]] bool More() const { return next_ < lines_.size(); }
  [[nodiscard]] const QString& Line() const { return lines_[next_]; }
  [[nodiscard]] bool Blank() const { return Line().trimmed().isEmpty(); }

  QString Block() {
    if (Blank()) {
      ++next_;
      return {};
    }
    if (Line().startsWith("```")) return Code();
    if (Line().startsWith('>')) return Quotation();
    if (Line().startsWith('|')) return Table();
    if (Item().match(Line()).hasMatch()) return List();
    if (const auto heading = Heading().match(Line()); heading.hasMatch()) {
      ++next_;
      const auto level = heading.captured(1).size();
      return QString("<h%1>%2</h%1>\n").arg(level).arg(Inline(heading.captured(2)));
    }
    return Paragraph();
  }

  QString Code() {
    QString text;
    for (++next_; More() && !Line().startsWith("```"); ++next_) text += Line() + '\n';
    ++next_;
    text.chop(1);
    return "<table class=\"code\" width=\"100%\"><tr><td><pre>" + text.toHtmlEscaped() +
           "</pre></td></tr></table>\n";
  }

  QString Quotation() {
    static const QRegularExpression kMark("^> ?");
    QStringList inner;
    for (; More() && Line().startsWith('>'); ++next_) inner += QString(Line()).remove(kMark);
    // The toolkit gives a table a background, and a block quotation none.
    return "<table class=\"warning\" width=\"100%\"><tr><td>" + Blocks(inner).Html() +
           "</td></tr></table>\n";
  }

  QString Table() {
    QString rows;
    for (bool head = true; More() && Line().startsWith('|'); ++next_) {
      const QStringList cells = Line().trimmed().mid(1).chopped(1).split('|');
      if (cells.constFirst().trimmed().startsWith("---")) {
        head = false;
        continue;
      }
      rows += "<tr>";
      for (const QString& cell : cells) {
        rows += QString(head ? "<th align=\"left\">%1</th>" : "<td>%1</td>")
                    .arg(Inline(cell.trimmed()));
      }
      rows += "</tr>";
    }
    return "<table class=\"data\" width=\"100%\">" + rows + "</table>\n";
  }

  QString List() {
    const bool numbered = Line().at(0) != '-';
    QString items;
    while (More() && Item().match(Line()).hasMatch() && (Line().at(0) != '-') == numbered) {
      items += "<li>" + Blocks(TakeItem()).Html() + "</li>\n";
    }
    return numbered ? "<ol>" + items + "</ol>\n" : "<ul>" + items + "</ul>\n";
  }

  // The lines of one item without their indentation, and past the blank lines behind it.
  QStringList TakeItem() {
    const auto first = Item().match(Line());
    const auto indent = first.capturedStart(2);
    QStringList item{first.captured(2)};
    for (++next_; More(); ++next_) {
      const bool inside = Line().left(indent).trimmed().isEmpty();
      if (!inside) break;
      item += Line().mid(indent);
    }
    return item;
  }

  QString Paragraph() {
    QStringList text;
    while (More() && !Blank() && (text.isEmpty() || !StartsBlock())) {
      text += Line().trimmed();
      ++next_;
    }
    return "<p>" + Inline(text.join(' ')) + "</p>\n";
  }

  [[nodiscard]] bool StartsBlock() const {
    return Line().startsWith("```") || Line().startsWith('>') || Line().startsWith('|') ||
           Item().match(Line()).hasMatch() || Heading().match(Line()).hasMatch();
  }

  const QStringList lines_;
  qsizetype next_ = 0;
};

}  // namespace

QString GuideHtml(const QString& markdown) { return Blocks(markdown.split('\n')).Html(); }

QString GuideTitle(const QString& markdown) {
  for (const QString& line : markdown.split('\n')) {
    if (const auto heading = Heading().match(line); heading.hasMatch()) return heading.captured(2);
  }
  return {};
}

}  // namespace zelorgas
