// The commands of a script, as a table of names, counts of words and actions.
#pragma once

#include <string>
#include <vector>

namespace noldarz {

class ScriptSession;

/// Carries out a command and its words. Throws ScriptError, which names the word at fault.
void runCommand(ScriptSession& session, const std::vector<std::string>& words);

}  // namespace noldarz
