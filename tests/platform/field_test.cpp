#include "platform/field.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/view.h"

namespace noldarz {
namespace {

constexpr std::array<std::string_view, 3> words{"one", "two", "three"};

TEST(Field, readsItsNumberAndWordAnewWhenTheTextChanges) {
  Views views;
  View view{views, "v", ""};
  Field& field = view.text("f", "12.5");
  EXPECT_EQ(field.number(), 12.5);
  EXPECT_EQ(field.wordIndex(words), -1);
  field.setText("two");
  EXPECT_EQ(field.wordIndex(words), 1);
  EXPECT_THROW(field.number(), RuntimeFailure);
  field.setText("three ");
  EXPECT_EQ(field.wordIndex(words), -1);  // compared exactly
  field.setText("1e3");
  EXPECT_EQ(field.number(), 1000);

  const auto revision = view.textRevision();
  field.setText("1e3");
  field.disable();
  EXPECT_EQ(view.textRevision(), revision);
  field.setText("2");
  EXPECT_NE(view.textRevision(), revision);
}

TEST(Field, showsAPlainNumberAgainAfterAnotherText) {
  Views views;
  View view{views, "v", ""};
  Field& field = view.label("f");
  field.setPlainNumber(0.1 + 0.2);
  EXPECT_EQ(field.text(), "0.3");
  field.setText("other");
  field.setPlainNumber(0.1 + 0.2);
  EXPECT_EQ(field.text(), "0.3");
  field.setPlainNumber(7);
  EXPECT_EQ(field.text(), "7");
}

TEST(Field, tellsObserversOfChangesOnly) {
  Views views;
  View view{views, "v", ""};
  Field& field = view.text("f", "1");
  std::vector<Property> told;
  view.observe([&](Field& changed, Property property) {
    EXPECT_EQ(&changed, &field);
    told.push_back(property);
  });
  field.setText("1");
  field.setText("2");
  field.disable();
  field.disable();
  field.setBackColour(SystemColour::windowBackground);  // its default
  field.setWidth(3);
  EXPECT_EQ(told, (std::vector<Property>{Property::text, Property::enabled, Property::width}));
}

TEST(Field, aListThatIsFilledAnewOrEmptiedHasNoEntryInForce) {
  Views views;
  View view{views, "v", ""};
  Field& list = view.add(FieldKind::list, "list");
  for (const std::vector<std::string>& entries : {std::vector<std::string>{"c"}, {}}) {
    list.setEntries({"a", "b"});
    list.select(1);
    EXPECT_EQ(list.text(), "b");
    list.setEntries(entries);
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(list.text(), "");
  }
}

TEST(FieldArray, namesItsElementsAndRefusesAnIndexOutside) {
  Views views;
  View view{views, "v", ""};
  const auto fields = view.array<6>(FieldKind::text, "constn", "5");
  EXPECT_EQ(view.find("constn(5)"), &fields[5]);
  EXPECT_EQ(fields[0].text(), "5");
  EXPECT_THROW(fields[6], std::out_of_range);
  EXPECT_THROW(fields[-1], std::out_of_range);
}

}  // namespace
}  // namespace noldarz
