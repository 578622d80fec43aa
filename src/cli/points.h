// Points that a user gives to a command: "X,Y" as a word, or one a line in a file. `at` asks for them, `plot` traces a
// pipeline by them, `map` marks them in a drawing.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace noldarz {

struct GivenPoint {
  double x = 0;
  double y = 0;

  bool operator==(const GivenPoint&) const = default;
};

/// "X,Y"; nothing for any other text.
std::optional<GivenPoint> pointOf(std::string_view text);
/// The same, or "X" on the x axis.
std::optional<GivenPoint> placeOf(std::string_view text);

/// Reads a point a line, without empty lines and those that begin with "#". `file` "-": from `in`; `what` is what a
/// line has to be, "a place: X or X,Y in metres". Empty, or the fault with file and line.
std::string readPoints(const std::string& file, std::istream* in, std::optional<GivenPoint> (*read)(std::string_view),
                       const char* what, std::vector<GivenPoint>& points);

}  // namespace noldarz
