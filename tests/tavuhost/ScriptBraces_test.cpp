// Braces as authors place them: each placement that the scripting guide
// allows runs the branch it should, and a brace with words on both sides is
// refused with a message that says where braces go.
#include "EngineFixture.h"

namespace {

struct Placement {
    const char* Name;
    const char* Script; // ${A} is 2, so the second branch is the one taken
    const char* Printed;
};

const Placement kPlacements[] = {
    {"all on their own lines", "if ${A} == 1\n{\necho one\n}\nelse\n{\necho two\n}\n", "two"},
    {"} then else on the next line", "if ${A} == 1 {\necho one\n}\nelse {\necho two\n}\n", "two"},
    {"} else then { on the next line", "if ${A} == 1 {\necho one\n} else\n{\necho two\n}\n", "two"},
    {"else if on its own line", "if ${A} == 1\n{\necho one\n}\nelse if ${A} == 2\n{\necho two\n}\n",
     "two"},
    {"} then else if on the next line",
     "if ${A} == 1 {\necho one\n}\nelse if ${A} == 2 {\necho two\n}\nelse {\necho three\n}\n",
     "two"},
    {"} else if {", "if ${A} == 1 {\necho one\n} else if ${A} == 2 {\necho two\n}\n", "two"},
    {"indented, with a comment and a blank line before else",
     "if ${A} == 1\n  {\n    echo one\n  }\n\n  ; the other case\n  else\n  {\n    echo two\n  }\n",
     "two"},
    {"Windows line ends", "if ${A} == 1\r\n{\r\necho one\r\n}\r\nelse\r\n{\r\necho two\r\n}\r\n",
     "two"},
    {"inside a loop",
     "declare I int 0\nwhile ${I} < 1\n{\nI:Inc\nif ${A} == 1\n{\necho one\n}\n"
     "else\n{\necho two\n}\n}\n",
     "two"},
    {"do on its own line", "do\n{\necho two\n}\nwhile ${A} == 1\n", "two"},
    {"} while on one line", "do {\necho two\n} while ${A} == 1\n", "two"},
};

} // namespace

class ScriptBraces : public EngineFixture {};

TEST_F(ScriptBraces, EveryAllowedPlacementRunsTheRightBranch) {
    for (const Placement& placement : kPlacements) {
        std::string script = std::string("declare A int 2\n") + placement.Script;
        EXPECT_GE(RunScript(script), 0) << placement.Name << ": " << TakeConsole().front();
        EXPECT_EQ(std::vector<std::string>{placement.Printed}, TakeConsole()) << placement.Name;
    }
    // An element's event script is an atom around the author's text.
    unsigned atom = Engine.CompileAtom("atom auto()\n{\nif 1 == 2\n{\necho one\n}\nelse\n{\n"
                                       "echo two\n}\n}\n",
                                       1000);
    ASSERT_NE(0u, atom) << TakeConsole().front();
    EXPECT_TRUE(Engine.ExecuteAtom(atom, 0, nullptr, nullptr, nullptr));
    EXPECT_EQ(std::vector<std::string>{"two"}, TakeConsole());
}

TEST_F(ScriptBraces, MisplacedBracesSayWhereBracesGo) {
    const std::string hint = ": a '{' ends its line or stands alone, and a '}' starts its line";
    const std::pair<const char*, std::string> cases[] = {
        {"if 1 { echo a }\n", "line 1: '{' expected" + hint},
        {"if 1\n{ echo a\n}\n", "line 2: '{' expected" + hint},
        // A data sequence's brace is no block brace: the plain message stays.
        {"if ${A} == 1\necho a\n", "line 2: '{' expected"},
        {"if 1\n{\necho a\n}\nelse echo b\n", "line 5: 'else' must be followed by a block or 'if'"},
    };
    for (const auto& [script, message] : cases) {
        EXPECT_EQ(nullptr, Engine.LoadScript("bad", script)) << script;
        EXPECT_EQ(std::vector<std::string>{"Syntax error in script bad " + message}, TakeConsole())
            << script;
    }
}
