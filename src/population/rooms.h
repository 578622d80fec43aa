// The rooms of the population grid, built and wired: the row of the grid in the study, the view, its two modes and its
// table.
#pragma once

#include "population/grid_commands.h"
#include "population/grid_import.h"
#include "population/grid_table.h"
#include "population/unit_conversion.h"
#include "study/rooms.h"

namespace noldarz {

struct PopulationRooms {
  struct Sees {
    PopulationState& state;
    WindState& wind;
    StudyState& studyState;
    const ProjectFields& project;
    Field& popdnsty;
    GridView& grid;
    const Field& outputList;
    View& reportView;
    const ReportTableFields& report;
    StudyRooms& study;
    const Settings& settings;
    Desktop& desktop;
    StatusLine& mainStatus;
  };
  explicit PopulationRooms(const Sees& sees);

  StatusLine status;
  DataLink dt5;  // grid of the reference number
  GridRow row;
  UnitConversion conversion;
  GridImport gridImport;
  GridTable table;
  GridCommands commands;
};

}  // namespace noldarz
