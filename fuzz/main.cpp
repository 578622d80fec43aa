// noldarz-fuzz TARGET SECONDS [SEED]: runs random cases, one a seed, until the time is over. The seed of the case that
// runs stands in the file noldarz-fuzz.seed of the current folder, so that a crash can be repeated: SECONDS 0 runs one
// case.

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "targets.h"

namespace noldarz::fuzz {

const fs::path& scratch() {
  struct Folder {
    Folder() {
      std::string name = (fs::temp_directory_path() / "noldarz-fuzz-XXXXXX").string();
      path = mkdtemp(name.data());
    }
    ~Folder() {
      std::error_code error;
      fs::remove_all(path, error);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    fs::path path;
  };
  static const Folder folder;
  return folder.path;
}

}  // namespace noldarz::fuzz

int main(int argc, char** argv) try {
  using namespace noldarz::fuzz;
  using Clock = std::chrono::steady_clock;
  const std::string name = argc > 1 ? argv[1] : "";
  const auto target =
      std::find_if(std::begin(targets), std::end(targets), [&](const Target& t) { return t.name == name; });
  if (argc < 3 || argc > 4 || target == std::end(targets)) {
    std::cerr << "usage: noldarz-fuzz TARGET SECONDS [SEED]; targets:";
    for (const Target& known : targets) std::cerr << ' ' << known.name;
    std::cerr << '\n';
    return 2;
  }
  const auto end = Clock::now() + std::chrono::seconds(std::stoi(argv[2]));
  const auto first = static_cast<unsigned>(argc > 3 ? std::stoul(argv[3]) : 1);
  constexpr unsigned longestCase = 60;  // s; a case that takes longer hangs
  unsigned seed = first;
  std::ofstream record("noldarz-fuzz.seed");
  do {
    record.seekp(0);
    record << seed << std::endl;
    alarm(longestCase);
    noldarz::Chance chance{seed++};
    target->run(chance);
  } while (Clock::now() < end);
  std::cout << name << ": " << seed - first << " cases\n";
} catch (const std::exception& failure) {
  std::cerr << "noldarz-fuzz: " << failure.what() << '\n';
  return 1;
}
