#include <algorithm>

#include "platform/cad/dxf_writer.h"
#include "platform/cad/scene_index.h"
#include "targets.h"

namespace noldarz::fuzz {

namespace {

const std::deque<AddedEntity>& additions() {
  static const std::deque<AddedEntity> all = [] {
    const std::vector<CadPoint> fit{{0, 0, 0}, {3, 1, 0}, {4, 4, 0}, {0, 0, 0}};
    return std::deque<AddedEntity>{{"Zone Ω", 256, AddedLine{{1, 2, 3}, {4, 5, 6}}},
                                   {"Zone Ω", 1, AddedCircle{{1, 2, 3}, 4}},
                                   {"0", 256, AddedText{"≥ 1", {1, 2, 3}, 2, 1}},
                                   {"0", 2, AddedSpline{Spline{fit}, fit, 0}}};
  }();
  return all;
}

std::size_t recordsOf(const DxfFile& file) {
  std::size_t count = 0;
  DxfTags tags{file.bytes(), file.entities().begin, file.entities().end};
  for (DxfTag tag; tags.next(tag);) count += tag.code == 0 ? 1 : 0;
  return count;
}

void demandSound(const DxfFile& file) {
  for (const DxfLayer& layer : file.layers()) {
    demand(layer.colour > 0 && layer.colour < 256, "a layer without a colour");
    demand(file.layer(layer.name) != nullptr, "a layer that isn't found");
    const std::string value = asDxfText(layer.name, file.isInUtf8());
    demand(asDxfText(file.decoded(value), file.isInUtf8()) == value, "a name that doesn't read back");
  }
  for (const auto& [name, block] : file.blocks())
    demand(block.entities.begin <= block.entities.end && block.entities.end <= file.bytes().size(), "a block outside");
}

}  // namespace

void readDrawing(Chance& chance) {
  try {
    const DxfFile file{chance.rest(), "case.dxf"};
    demandSound(file);
    const SceneIndex seen{sceneOf(file)};
    demand(seen.size() <= Scene::mostItems, "more than a scene holds");
    demand(DxfPieces{file, {}, {}}.joined() == file.bytes(), "bytes that nobody has changed");
    std::vector<ChangedLayer> layers{{"Zone Ω", 3}};
    if (!file.layers().empty()) layers.push_back({file.layers().back().name, 3});
    const DxfFile again{DxfPieces{file, layers, additions()}.joined(), "result.dxf"};
    for (const ChangedLayer& layer : layers)
      demand(again.layer(layer.name) && again.layer(layer.name)->colour == layer.colour, "a layer that did not stay");
    demand(recordsOf(again) >= recordsOf(file) + additions().size(), "an entity that did not stay");
    demand(again.blocks().size() == file.blocks().size(), "a block that did not stay");
    demand(!again.places().handles || again.places().nextHandle > file.places().nextHandle, "a handle given twice");
    const std::deque<AddedEntity> none;
    demand(DxfPieces{again, layers, none}.joined() == again.bytes(), "layers that are as they should be");
  } catch (const CadFailure&) {  // told to the user
  }
}

}  // namespace noldarz::fuzz
