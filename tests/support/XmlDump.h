// A document as the cursor finds it, in one line: to compare what an edit has left in the index
// with what a fresh parse of the same text gives.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "config/XmlDocument.h"

namespace zelorgas {

// "root[n=1](child()#text:hello)". Attributes are shown when they are called n or new.
inline std::string XmlDump(XmlDocument& document) {
  std::string out;
  document.ResetPosition();
  std::vector<std::pair<std::vector<XmlNode>, std::size_t>> levels{{document.Nodes(), 0}};
  for (;;) {
    auto& [nodes, next] = levels.back();
    if (next == nodes.size()) {
      levels.pop_back();
      if (levels.empty()) return out;
      out += ')';
      document.LeaveElement();
      continue;
    }
    const XmlNode node = nodes[next++];
    out += node.name;
    if (std::string_view("#?!").find(node.name[0]) != std::string_view::npos) {
      out += ':' + node.text;
      continue;
    }
    if (!document.FindElement(node.name)) return out + " cannot be found";
    for (const char* const name : {"n", "new"}) {
      if (document.HasAttribute(name))
        out += '[' + (name + ('=' + document.GetAttribute(name))) + ']';
    }
    out += '(';
    levels.emplace_back(document.Nodes(), 0);
    document.EnterElement();
  }
}

}  // namespace zelorgas
