#include <gtest/gtest.h>

#include "config/XmlDocument.h"
#include "support/XmlDump.h"

namespace zelorgas {
namespace {

XmlDocument Parsed(std::string text) {
  XmlDocument document;
  document.SetDocumentText(std::move(text));
  return document;
}

// The index after edits is what a fresh parse of the edited text gives.
void ExpectConsistent(XmlDocument& document) {
  XmlDocument fresh = Parsed(document.Text());
  EXPECT_EQ(XmlDump(document), XmlDump(fresh)) << document.Text();
}

TEST(XmlDocument, FindingsSayWhatAndWhere) {
  const struct {
    std::string_view text;
    std::string_view findings;
    std::string_view dump;  // what is usable all the same
  } cases[] = {
      {"", "Empty document", ""},
      {" \r\n\t", "No root element", ""},
      {"<a/>", "", "a()"},
      {"<a/><b/>", "Root element has sibling", "a()b()"},
      {"</a>", "No start tag for end tag 'a' at offset 0\nNo root element", "#text:</a>"},
      {"<a/></b>", "No start tag for end tag 'b' at offset 4", "a()#text:</b>"},
      {"<a></b>", "End tag 'b' at offset 3 does not match start tag 'a' at offset 0", "a()"},
      {"<a><b></a>", "End tag 'a' at offset 6 does not match start tag 'b' at offset 3", "a(b())"},
      {"<r><a></x><b/></r>", "End tag 'x' at offset 6 does not match start tag 'a' at offset 3",
       "r(a()b())"},
      {"<a><b>", "Element 'b' at offset 3 not ended\nElement 'a' at offset 0 not ended", "a(b())"},
      {"<a", "Element tag at offset 0 unterminated\nNo root element", "#text:<a"},
      {"<a></a", "Element end tag at offset 3 unterminated\nElement 'a' at offset 0 not ended",
       "a(#text:</a)"},
      {"<a/><!-- x", "Comment at offset 4 unterminated", "a()#comment: x"},
      {"<a><![CDATA[x]]</a>",
       "CDATA Section at offset 3 unterminated\nElement 'a' at offset 0 not ended",
       "a(#cdata-section:x]]</a>)"},
      {"<!DOCTYPE a [<!-- ]> ' --><!ENTITY b \"]>\">]><a/>", "",
       "!DOCTYPE:a [<!-- ]> ' --><!ENTITY b \"]>\">]a()"},
      {"<!ELEMENT a><a/>", "Incorrect ! tag at offset 0", "#text:<!ELEMENT a>a()"},
      {"<a><!-x></a>", "Incorrect comment tag at offset 3", "a(#text:<!-x>)"},
      {"<a =\"1\"/>", "Incorrect name character at offset 3", "a()"},
      // Duplicates: the first counts. Quotes of either kind, none, or one too few.
      {"<a n=\"1\" n=\"2\"/>", "", "a[n=1]()"},
      {"<a n = '\"'/>", "", "a[n=\"]()"},
      {"<a n=1/><b n=1>", "Element 'b' at offset 8 not ended\nRoot element has sibling",
       "a[n=1]()b[n=1]()"},
      {"<a n new= />", "", "a[n=][new=]()"},
      {"<a n=\"1>text</a>",
       "Element tag at offset 0 unterminated\n"
       "No start tag for end tag 'a' at offset 12\nNo root element",
       "#text:<a n=\"1>text</a>"},
      {"<a n=\"1 new=\"2\"/>", "Incorrect name character at offset 14", "a[n=1 new=]()"},
      {"<a n=\"<>&lt;/>\">&amp;&#65;&quot;&</a>", "", "a[n=<></>](#text:&&#65;\"&)"},
  };
  for (const auto& c : cases) {
    XmlDocument document = Parsed(std::string(c.text));
    EXPECT_EQ(document.ErrorText(), c.findings) << c.text;
    EXPECT_EQ(XmlDump(document), c.dump) << c.text;
  }
}

constexpr std::string_view kSample =
    "\xEF\xBB\xBF<?xml version=\"1.0\"?>\r\n<!DOCTYPE r [<!ENTITY x \"]>\">]>\n<r "
    "\r\n\tVersion=\"1.00\">"
    "<!-- one --><a n=\"&lt;1&gt;\" 0=\"5\"/><b>text<![CDATA[<&]]></b><a n='2'></a>\r\n</r>";

TEST(XmlDocument, EveryTruncatedPrefixIsFoundIncompleteAndStaysUsable) {
  for (std::size_t length = 0; length < kSample.size(); ++length) {
    XmlDocument document = Parsed(std::string(kSample.substr(0, length)));
    EXPECT_NE(document.ErrorText(), "") << length;
    XmlDump(document);
    document.ResetPosition();
    if (document.FindElement("r")) {
      EXPECT_EQ(document.GetAttribute("Version"), "1.00");
      EXPECT_TRUE(document.SetAttribute("new", "x"));
      EXPECT_EQ(document.GetAttribute("new"), "x");
      EXPECT_TRUE(document.AddChildElement("added", "y"));
      EXPECT_EQ(document.GetChildText(), "y");
    }
  }
  EXPECT_EQ(Parsed(std::string(kSample)).ErrorText(), "");
}

TEST(XmlDocument, TheCursorMovesThroughThreeLevels) {
  XmlDocument document =
      Parsed("<r><a n=\"1\"/><b><c n=\"2\"/></b><a n=\"3\"/></r><notes n=\"4\"/>");
  EXPECT_FALSE(document.EnterElement() || document.LeaveElement() ||
               document.FindChildElement("a") || document.FindElement("a"));
  ASSERT_TRUE(document.FindElement("r") && document.FindChildElement("a"));
  EXPECT_EQ(document.GetChildAttribute("n"), "1");
  ASSERT_TRUE(document.FindChildElement("a"));
  EXPECT_FALSE(document.FindChildElement("a") || document.FindChildElement("b"))
      << "the search goes forward only";
  EXPECT_EQ(document.GetChildAttribute("n"), "3") << "a search in vain moves nothing";
  ASSERT_TRUE(document.EnterElement());
  EXPECT_EQ(document.GetAttribute("n"), "3");
  ASSERT_TRUE(document.LeaveElement());
  EXPECT_EQ(document.GetChildAttribute("n"), "3");
  ASSERT_TRUE(document.FindElement("notes"));
  EXPECT_EQ(document.GetAttribute("n") + document.GetChildAttribute("n"), "4");
  document.ResetPosition();
  EXPECT_TRUE(document.FindElement("notes")) << "past the root, from the start";
}

TEST(XmlDocument, WritesWhatASaverAsksFor) {
  XmlDocument document = Parsed("<?xml version=\"1.0\"?>\r\n");
  EXPECT_FALSE(document.AddChildElement("x") || document.SetAttribute("n", 1) ||
               document.SetText("x"));
  document.AddElement("Root");
  document.SetAttribute("\r\n\tVersion", "1.00");
  document.AddChildElement("Data");
  document.EnterElement();
  document.SetAttribute("\r\n\t0", -17);
  document.SetAttribute("\r\n\tn", "1;2");
  document.AddElement("More", "a<b");
  document.LeaveElement();
  document.SetChildAttribute("n", "\"<&>'");
  document.AddElement("Notes");
  document.SetAttribute("\r\n\t\tText", "");
  EXPECT_EQ(document.Text(),
            "<?xml version=\"1.0\"?>\r\n"
            "<Root \r\n\tVersion=\"1.00\">\r\n"
            "<Data \r\n\t0=\"-17\" \r\n\tn=\"1;2\"/>\r\n"
            "<More n=\"&quot;&lt;&amp;&gt;&apos;\">a&lt;b</More>\r\n"
            "</Root>\r\n"
            "<Notes \r\n\t\tText=\"\"/>\r\n");
  EXPECT_TRUE(document.HasAttribute("\r\n Text"));
  EXPECT_FALSE(document.HasAttribute("Tex"));
  ExpectConsistent(document);
  EXPECT_EQ(Parsed(document.Text()).ErrorText(), "Root element has sibling");
  document.ResetPosition();
  ASSERT_TRUE(document.FindElement("Root") && document.FindChildElement("More"));
  EXPECT_EQ(document.GetChildAttribute("n"), "\"<&>'");
  EXPECT_EQ(document.GetChildText(), "a<b");
}

TEST(XmlDocument, ReplacedValuesKeepTheirPlace) {
  const struct {
    std::string_view before;
    std::string_view after;
  } cases[] = {
      {"<a n=\"1\" new=\"2\"/>", "<a n=\"x&amp;y\" new=\"2\"/>"},
      {"<a n = '12345' new='2'>", "<a n=\"x&amp;y\" new='2'>"},
      {"<a n=1 new=2/>", "<a n=\"x&amp;y\" new=2/>"},
      {"<a n new/>", "<a n=\"x&amp;y\" new/>"},
      {"<a n= >", "<a n=\"x&amp;y\" >"},
      {"<a n='1' n='2'/>", "<a n=\"x&amp;y\" n='2'/>"},
      {"<a new=/>", "<a new= \tn=\"x&amp;y\"/>"},
  };
  for (const auto& c : cases) {
    XmlDocument document = Parsed(std::string(c.before));
    ASSERT_TRUE(document.FindElement("a"));
    EXPECT_EQ(document.GetAttribute("none"), "");
    EXPECT_TRUE(document.SetAttribute("\tn", "x&y"));
    EXPECT_EQ(document.Text(), c.after);
    EXPECT_EQ(document.GetAttribute("n"), "x&y");
    ExpectConsistent(document);
  }
}

TEST(XmlDocument, TextAndCdataReadBackUnchanged) {
  for (const std::string text : {"", "a]]>b", "]]>", "]]]>>", "]]>]]>", "<&>'\"\r\n", "&lt;"}) {
    for (const XmlTextForm form : {XmlTextForm::kEscaped, XmlTextForm::kCdata}) {
      XmlDocument document = Parsed("<r><a/></r>");
      ASSERT_TRUE(document.FindElement("r") && document.FindChildElement("a"));
      EXPECT_FALSE(document.SetText(text, form)) << "that would lose the child";
      for (int i = 0; i < 2; ++i) EXPECT_TRUE(document.SetChildText(text, form));
      EXPECT_EQ(document.GetChildText(), text);
      ExpectConsistent(document);
      XmlDocument again = Parsed(document.Text());
      EXPECT_EQ(again.ErrorText(), "");
      ASSERT_TRUE(again.FindElement("r") && again.FindChildElement("a"));
      EXPECT_EQ(again.GetChildText(), text);
    }
  }
}

TEST(XmlDocument, NestingIsNoDeeperThanTheText) {
  constexpr std::size_t kDepth = 200'000;
  std::string text;
  for (std::size_t i = 0; i < kDepth; ++i) text += "<a>";
  XmlDocument open = Parsed(text);
  EXPECT_LT(open.ErrorText().size(), 100'000U);
  for (std::size_t i = 0; i < kDepth; ++i) text += "</a>";
  XmlDocument document = Parsed(text + "<b n=\"1\"/>");
  ASSERT_TRUE(document.FindElement("a"));
  EXPECT_TRUE(document.SetAttribute("n", "moves all others"));
  std::size_t depth = 1;
  for (; document.FindChildElement("a"); ++depth) document.EnterElement();
  EXPECT_EQ(depth, kDepth);
  EXPECT_TRUE(document.AddChildElement("c"));
  document.ResetPosition();
  ASSERT_TRUE(document.FindElement("b"));
  EXPECT_EQ(document.GetAttribute("n"), "1");
  ExpectConsistent(document);
}

}  // namespace
}  // namespace zelorgas
