#include "platform/property.h"

#include <gtest/gtest.h>

#include "platform/view.h"

namespace noldarz {
namespace {

TEST(Property, isSetFromATextOrLeftAsItWas) {
  Views views;
  View view{views, "v", ""};
  Field& field = view.add(FieldKind::check, "c", "Caption");
  const struct {
    const char* name;
    const char* taken;
    PropertyValue value;
    const char* refused;  // null: every text is taken
  } cases[] = {
      {"text", "new", std::string{"new"}, nullptr},
      {"caption", "UEL:", std::string{"UEL:"}, nullptr},
      {"value", "1", 1.0, "on"},
      {"enabled", "false", false, "no"},
      {"locked", "true", true, "yes"},
      {"visible", "0", false, "2"},
      {"checked", "true", true, ""},
      {"toolTip", "tip", std::string{"tip"}, nullptr},
      {"fault", "no number", std::string{"no number"}, nullptr},
      {"tag", "2", std::string{"2"}, nullptr},
      {"backColour", "#ffe0c0", std::string{"#ffe0c0"}, "orange"},
      {"foreColour", "disabledText", std::string{"disabledText"}, "#12"},
      {"fillColour", "#000001", std::string{"#000001"}, "1"},
      {"entries", "a\nb c", std::vector<std::string>{"a", "b c"}, nullptr},
      {"details", "of a\nof b", std::vector<std::string>{"of a", "of b"}, nullptr},
      {"current", "1", 1.0, "first"},
      {"left", "1.5", 1.5, "left"},
      {"top", "2", 2.0, "1,5"},
      {"width", "5050", 5050.0, "N.A."},
      {"height", "-1", -1.0, ""},
  };
  EXPECT_EQ(std::size(cases), static_cast<std::size_t>(Property::height) + 1);
  for (const auto& [name, taken, value, refused] : cases) {
    const auto property = findProperty(name);
    ASSERT_TRUE(property) << name;
    EXPECT_EQ(propertyName(*property), name);
    EXPECT_TRUE(setProperty(field, *property, taken)) << name;
    EXPECT_EQ(getProperty(field, *property), value) << name;
    if (!refused) continue;
    EXPECT_FALSE(setProperty(field, *property, refused)) << name;
    EXPECT_EQ(getProperty(field, *property), value) << name;
  }
  EXPECT_FALSE(findProperty("colour"));
  EXPECT_FALSE(setProperty(field, Property::value, "1.5"));
}

TEST(Property, isChangedWhenItIsNotAtTheDefaultOfTheKind) {
  Views views;
  View view{views, "v", ""};
  Field& field = view.text("f");
  EXPECT_TRUE(changedProperties(field).empty());
  field.setText("1");
  field.disable();
  field.setBackColour({255, 224, 192});
  EXPECT_EQ(changedProperties(field), (std::vector<Property>{Property::text, Property::enabled, Property::backColour}));
  Field& menu = view.add(FieldKind::menu, "m", "File");
  menu.setValue(1);
  EXPECT_EQ(changedProperties(menu), (std::vector<Property>{Property::caption, Property::checked}));
}

}  // namespace
}  // namespace noldarz
