// The record of a script as JSON, one object a line. The script front and `run --json` print it.
#pragma once

#include <deque>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/record.h"
#include "platform/cad/entities.h"
#include "platform/canvas/canvas.h"

namespace noldarz {

using Json = nlohmann::ordered_json;

Json boxJson(const BoxShown& shown);

/// The object as text; a byte that is no UTF-8 is replaced.
std::string dumped(const Json& object);

/// One line.
std::string jsonLine(const Json& object);
std::string jsonLine(const RecordEntry& entry);

/// A whole number without a fraction.
Json numberJson(double value);

/// The primitives of a drawing, in order: ["Line", x1, y1, x2, y2, colour].
Json primitivesJson(const Drawing& drawing);
/// What was added to a CAD drawing, in order: ["Circle", layer, colour index, x, y, z, radius].
Json entitiesJson(const std::deque<AddedEntity>& entities);

}  // namespace noldarz
