#include "platform/colour.h"

#include <gtest/gtest.h>

namespace noldarz {
namespace {

TEST(Colour, isReadAsItIsWritten) {
  for (const Colour colour : {Colour{1, 2, 255},
                              Colour{},
                              Colour{SystemColour::buttonFace},
                              Colour{SystemColour::windowBackground},
                              Colour{SystemColour::windowText},
                              Colour{SystemColour::buttonText}})
    EXPECT_EQ(parseColour(colourText(colour)), colour) << colourText(colour);
  EXPECT_EQ(colourText({224, 224, 224}), "#e0e0e0");
  EXPECT_EQ(colourText(Colour::fromScreen(0xC0E0FF)), "#ffe0c0");  // red in the lowest byte
  EXPECT_EQ(colourText(basicPalette[12]), "#ff0000");
  for (const char* text : {"", "#12345", "#1234567", "#12345g", "red", "#-12345", "ButtonFace"})
    EXPECT_FALSE(parseColour(text)) << text;
}

}  // namespace
}  // namespace noldarz
