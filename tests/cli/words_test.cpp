#include "cli/words.h"

#include <gtest/gtest.h>

#include "cli/script_error.h"

namespace noldarz {
namespace {

TEST(SplitWords, takesWordsQuotesAndComments) {
  const struct {
    const char* line;
    std::vector<std::string> words;
  } cases[] = {
      {"", {}},
      {"   # a comment", {}},
      {"set htreltxt 1", {"set", "htreltxt", "1"}},
      {"\tset  a\tb  # rest", {"set", "a", "b"}},
      {"set a b#rest", {"set", "a", "b"}},
      {"set a \"\"", {"set", "a", ""}},
      {R"(set a "two words # here" # comment)", {"set", "a", "two words # here"}},
      {R"(set a "\"q\" \\ \n \t")", {"set", "a", "\"q\" \\ \n \t"}},
      {"echo \"a\"#c", {"echo", "a"}},
      {"click comput\r", {"click", "comput"}},
      {"choose stblclscbo #3 # third", {"choose", "stblclscbo", "#3"}},
      {"choose stblclscbo # third", {"choose", "stblclscbo"}},
      {"show a #3", {"show", "a"}},
  };
  for (const auto& [line, words] : cases) EXPECT_EQ(splitWords(line), words) << line;
}

TEST(SplitWords, namesTheWordAtFault) {
  const struct {
    const char* line;
    const char* error;
  } cases[] = {{"set a \"open", "the quote before \"open\" is not closed"},
               {"set a \"open\\", "the quote before \"open\" is not closed"},
               {R"(set a "b\x")", "unknown escape \"\\x\""},
               {"set a \"b\"c", "no blank behind the quoted word \"b\""},
               {"set a b\"c\"", "a quote inside the word \"b\"c\"\""}};
  for (const auto& [line, text] : cases) try {
      splitWords(line);
      ADD_FAILURE() << line;
    } catch (const ScriptError& error) {
      EXPECT_STREQ(error.what(), text);
    }
}

}  // namespace
}  // namespace noldarz
