#include "scenario/required_files.h"

#include <filesystem>
#include <fstream>

#include "platform/failure.h"

namespace noldarz {

namespace fs = std::filesystem;

namespace {

/// In the folder ReqFiles/fld1 beside the program's own folder.
fs::path setupProgram(const Folders& folders) { return folders.program.parent_path() / "ReqFiles" / "fld1" / "setup"; }

/// Overwrites the main module's marker in the user's documents with "File closed", if there is one.
void closeMarker(const Folders& folders) {
  const fs::path marker = folders.documents / "nldopnd.txt";
  std::error_code error;
  if (!fs::exists(marker, error)) return;
  std::ofstream stream(marker, std::ios::trunc);
  stream << "File closed";
  stream.close();
  if (!stream) fail(FailureNumber::readOnly);
}

}  // namespace

RequiredFiles::RequiredFiles(const Sees& sees)
    : sees_(sees),
      view_(sees.views, "reqfrm", " QUENDARIS : Required files installation"),
      lbl1_(view_.label("lbl1",
                        "Some more files required. Please Run Setup to install required files and then rerun main "
                        "module.")),
      reasonlbl_(view_.label("reasonlbl")),
      runsetp_(view_.add(FieldKind::button, "runsetp", "&Run Setup")) {
  view_.on(runsetp_, Event::click, [this] { runsetp_Click(); });
}

void RequiredFiles::open(View& mainView, const std::string& reason) {
  MessageBox box = critical("More files required run setup/Installed Files missing");
  box.title = "QUENDARIS: Files missing";
  sees_.desktop.messageBox(box);
  reasonlbl_.setCaption(reason);
  mainView.close();
  view_.show();
}

void RequiredFiles::runsetp_Click() {
  silently([&] { runSetup(); });  // any failure goes straight to closing
  view_.close();
}

void RequiredFiles::runSetup() const {
  const fs::path setup = setupProgram(sees_.folders);
  enterFolder(sees_.folders.program);
  enterFolder(sees_.folders.program.parent_path());
  enterFolder(setup.parent_path());
  sees_.desktop.runProgram(setup, {sees_.study.dbPath});
  enterFolder(sees_.folders.program);
  closeMarker(sees_.folders);
}

}  // namespace noldarz
