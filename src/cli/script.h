// Runs a script: reads its lines, carries each one out on the System by the names of its fields, and prints one JSON
// object a line in the order in which things happen. The commands themselves stand in commands.cpp.
#pragma once

#include <array>
#include <filesystem>
#include <iosfwd>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "cli/scripted_desktop.h"
#include "system/system.h"

namespace noldarz {

/// A record in which boxes that are all the same are told one by one up to the 99th in a row, and from the hundredth on
/// as one entry that counts them: "times".
class FoldedBoxes {
 public:
  explicit FoldedBoxes(TakeEntry record) : run_(std::make_shared<Run>(std::move(record))) {}
  void operator()(const RecordEntry& entry) const { run_->take(entry); }

 private:
  class Run {
   public:
    explicit Run(TakeEntry record) : record_(std::move(record)) {}
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run() { end(); }
    void take(const RecordEntry& entry);

   private:
    void end();

    TakeEntry record_;
    BoxShown last_;
    int times_ = 0;
  };

  std::shared_ptr<Run> run_;  // of all copies
};

/// The program as a script drives it: a System on a scripted desktop, its main view open on its initial values.
class ScriptSession {
 public:
  /// The current folder is the one in which `start` starts.
  explicit ScriptSession(TakeEntry record, Folders folders = Folders::ofUser());

  /// Carries out one line. Throws ScriptError for a line that can't be understood or carried out.
  void runLine(std::string_view line);

  /// Starts a fresh System in the start folder, and lets its timers run. Throws ScriptError when one runs already.
  void start();
  /// Whether the line ended the system: nothing of it is on the screen.
  bool ended() const { return system_->views().open().empty(); }

  /// Gives a setting of the user a value for this session, from its next start on.
  void presetSetting(std::array<std::string, 3> key, std::string value) { presets_[std::move(key)] = std::move(value); }

  System& system() { return *system_; }
  ScriptedDesktop& desktop() { return desktop_; }
  DxfCad& cad() { return cad_; }
  /// The folder in which the session began.
  const std::filesystem::path& startFolder() const { return startFolder_; }
  /// A JSON object that a command prints.
  void print(std::string json) const { record_(Printed{std::move(json)}); }

 private:
  void makeSystem();
  void paint();

  TakeEntry record_;
  Folders folders_;
  std::filesystem::path startFolder_;
  ScriptedDesktop desktop_;
  DxfCad cad_;
  std::unique_ptr<System> system_;
  std::map<std::array<std::string, 3>, std::string> presets_;
  bool started_ = false;
};

/// Exit status of the command line.
enum class ExitStatus : int { done = 0, failed = 1, refused = 2 };

/// Runs the lines of a script in the session. The first line that fails is reported to the session's record and to
/// `errors` as "NAME:LINE: text"; nothing after it runs.
ExitStatus runScript(ScriptSession& session, std::istream& lines, const std::string& name, std::ostream& errors);

/// Opens a file, "-" for standard input, and runs it under the name that its errors carry. A file that can't be read is
/// reported like a fault in line 0.
ExitStatus runScriptFile(ScriptSession& session, const std::string& file, const std::string& name,
                         std::ostream& errors);

}  // namespace noldarz
