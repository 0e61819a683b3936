// A chapter of the guide as HTML. The chapters are Markdown, as the web shows it; this knows what
// they use of it: headings, paragraphs, lists, tables, quotations, code, bold, links and pictures,
// and lays them out for a reader beside a running engine. A pure function.
#pragma once

#include <QString>

namespace zelorgas {

// Anything else stays what it is, as text.
[[nodiscard]] QString GuideHtml(const QString& markdown);

// The text of the first heading, which names the chapter; empty when there is none.
[[nodiscard]] QString GuideTitle(const QString& markdown);

}  // namespace zelorgas
