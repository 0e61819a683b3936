#include <gmock/gmock.h>

#include "injectors/Choices.h"
#include "injectors/ParameterGroups.h"

namespace zelorgas {
namespace {

std::vector<std::string_view> Found(std::string_view text) {
  std::vector<std::string_view> names;
  for (const Parameter* parameter : SearchParameters(text)) names.push_back(parameter->name);
  return names;
}

TEST(ParameterGroups, HoldEveryParameterOnceWithTheKindOfItsMeaning) {
  std::vector<std::string_view> all;
  for (const Parameter& parameter : Parameters()) {
    all.push_back(parameter.name);
    const bool flag = parameter.meaning.English().ends_with("(flag)");
    EXPECT_EQ(KindOf(parameter) == ParameterKind::kFlag, flag) << parameter.name;
  }
  for (const ChoiceList list : kChoiceLists) EXPECT_EQ(ListOf(ParameterOf(list)), list);
  EXPECT_THAT(Found(" "), testing::UnorderedElementsAreArray(all));
}

}  // namespace
}  // namespace zelorgas
