// The outputs of a run and the views that they bring, as rooms see them that know none of these views: the list of
// outputs opens them, the main view takes them with it when it closes. The room of an output offers it and attaches its
// view.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <utility>

#include "platform/view.h"

namespace noldarz {

/// Entries of the list of outputs, in this order.
enum class Output : std::uint8_t { levels, mixtures, profile, zones };
inline constexpr std::array<std::string_view, 4> outputEntries{"Concentration Levels and distances",
                                                               "Conc Lvls and dist for mixtures",
                                                               "Concentration profile",
                                                               "Plot Hazard Zones"};

/// Views that close with the main view, in this order.
enum class AttachedView : std::uint8_t { chldfrm, Drwfrm, absltftlyfrm, mixconcfrm, aniwait1, zardzone, ScrnCapt };

/// Views that an output closes before it opens.
inline std::span<const AttachedView> closedBy(Output output) {
  using enum AttachedView;
  static constexpr std::array ofLevels{Drwfrm, mixconcfrm, zardzone};
  static constexpr std::array ofMixtures{Drwfrm, chldfrm, zardzone};
  static constexpr std::array ofProfile{chldfrm, Drwfrm, mixconcfrm, zardzone};
  static constexpr std::array ofZones{Drwfrm, chldfrm, mixconcfrm};
  static constexpr std::array<std::span<const AttachedView>, outputEntries.size()> table{
      ofLevels, ofMixtures, ofProfile, ofZones};
  return table.at(static_cast<std::size_t>(output));
}

class Outputs {
 public:
  void offer(Output output, std::function<void()> open) {
    open_.at(static_cast<std::size_t>(output)) = std::move(open);
  }
  void attach(AttachedView place, View& view) { attached_.at(static_cast<std::size_t>(place)) = &view; }

  /// Opens the output of an entry. False when nobody offers it.
  bool open(std::size_t entry) const {
    if (entry >= open_.size() || !open_[entry]) return false;
    for (const AttachedView place : closedBy(static_cast<Output>(entry))) close(place);
    open_[entry]();
    return true;
  }
  bool open(Output output) const { return open(static_cast<std::size_t>(output)); }
  /// Shows, or closes, the view of that place, if there is one.
  void show(AttachedView place) const {
    if (View* view = attached_.at(static_cast<std::size_t>(place))) view->show();
  }
  void close(AttachedView place) const {
    if (View* view = attached_.at(static_cast<std::size_t>(place))) view->close();
  }
  void closeViews() const {
    for (View* view : attached_)
      if (view) view->close();
  }

 private:
  std::array<std::function<void()>, outputEntries.size()> open_;
  std::array<View*, 7> attached_{};
};

}  // namespace noldarz
