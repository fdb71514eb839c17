#include "EngineFixture.h"

#include "HostValueType.h"

#include <cstring>

namespace {

// A tree node as a query sees it: members Text and Expanded.
struct Node {
    const char* Text;
    bool Expanded;
};

class NodeType : public RXTypeDefinition {
public:
    explicit NodeType(ScriptEngine& engine) : RXTypeDefinition("node"), Engine(engine) {
        AddMember(1, "Text", nullptr);
        AddMember(2, "Expanded", nullptr);
    }
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int, char**,
                   _RXTypeVar& result) override {
        auto* node = static_cast<Node*>(object.Value.Pointer);
        if (!node) return false;
        if (member->ID == 1) {
            result.Type = Engine.FindType("string");
            result.Value.Text = node->Text;
        } else {
            result.Type = Engine.FindType("bool");
            result.Value.UInt64 = 0;
            result.Value.Bool = node->Expanded;
        }
        return true;
    }
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override {
        auto* node = static_cast<Node*>(object.Value.Pointer);
        strncpy(buffer, node ? node->Text : "", size);
        return node != nullptr;
    }
    ScriptEngine& Engine;
};

// The text the toolkit builds for an element's event.
std::string EventAtom(const char* parameters, const char* body) {
    return std::string("atom auto(") + parameters + ")\n{\n" + body + "\n}\n";
}

class ScriptAtoms : public EngineFixture {
protected:
    ScriptAtoms() : Type(Engine) { Engine.AddType(&Type); }
    ~ScriptAtoms() { Engine.RemoveType(&Type); }

    unsigned Compile(const std::string& text) {
        return Engine.CompileAtom(text.c_str(), text.size());
    }

    NodeType Type;
};

} // namespace

TEST_F(ScriptAtoms, EventAtomsTakeTheirParametersFromArgv) {
    unsigned atom =
        Compile(EventAtom("int X, int Y", "echo click at ${X},${Y} sum ${Math.Calc[${X}+${Y}]}"));
    ASSERT_NE(0u, atom);
    char x[] = "12", y[] = "-5";
    char* argv[] = {x, y};
    EXPECT_TRUE(Engine.ExecuteAtom(atom, 2, argv, nullptr, nullptr));
    EXPECT_TRUE(Engine.ExecuteAtom(atom, 1, argv, nullptr, nullptr))
        << "a missing argument is empty";
    EXPECT_EQ((std::vector<std::string>{"click at 12,-5 sum 7", "click at 12,0 sum 12"}),
              TakeConsole());
    EXPECT_EQ(0u, Engine.FindAtom("auto")) << "compiled event atoms have no name to find";
    Engine.DeleteAtom(atom);
    EXPECT_FALSE(Engine.ExecuteAtom(atom, 0, nullptr, nullptr, nullptr));
}

TEST_F(ScriptAtoms, ThisIsTheObjectPassedAndReturnGivesTheResult) {
    Node apple{"Apple", true};
    _RXTypeVar node{&Type, {}};
    node.Value.Pointer = &apple;
    unsigned atom = Compile(EventAtom(
        "string Key", "if ${This.Expanded}\n{\nreturn \"${This.Text} ${Key}\"\n}\nreturn no"));
    char key[] = "Enter";
    char* argv[] = {key};
    std::string result;
    EXPECT_TRUE(Engine.ExecuteAtom(atom, 1, argv, &node, &result));
    EXPECT_EQ("Apple Enter", result);
    apple.Expanded = false;
    EXPECT_TRUE(Engine.ExecuteAtom(atom, 1, argv, &node, &result));
    EXPECT_EQ("no", result);
    EXPECT_TRUE(Engine.ExecuteAtom(atom, 1, argv, nullptr, &result));
    EXPECT_EQ("no", result) << "without an object, This does not resolve";
    EXPECT_TRUE(TakeConsole().empty());
}

// What an event whose text does not compile says is checked end to end by
// tavuhost's syntax_errors case.
TEST_F(ScriptAtoms, TextThatDoesNotCompileGivesZero) {
    EXPECT_EQ(0u, Compile("echo not an atom\n"));
    EXPECT_EQ(0u, Compile(EventAtom("", "") + EventAtom("", "")));
    EXPECT_EQ(0u, Engine.CompileAtom(nullptr, 0));
    EXPECT_EQ(2u, TakeConsole().size());
    std::string text = EventAtom("", "echo cut here") + "garbage after the length";
    EXPECT_NE(0u, Engine.CompileAtom(text.c_str(), EventAtom("", "echo cut here").size()))
        << "only length bytes are read";
}

TEST_F(ScriptAtoms, ScriptsDefineAtomsThatCanBeFoundByName) {
    ASSERT_NE(nullptr, Engine.LoadScript("lib", "atom Greet(string Who)\n{\necho hi ${Who}\n}\n"));
    unsigned atom = Engine.FindAtom("greet");
    ASSERT_NE(0u, atom);
    char who[] = "there";
    char* argv[] = {who};
    Engine.ExecuteAtom(atom, 1, argv, nullptr, nullptr);
    EXPECT_EQ(std::vector<std::string>{"hi there"}, TakeConsole());
    EXPECT_EQ(0u, Engine.FindAtom("nobody"));
}

// An atom that loops for ever, deletes itself or runs itself again ends with
// its message, and the engine goes on.
TEST_F(ScriptAtoms, AtomsThatLoopDeleteOrRunThemselvesEndSafely) {
    unsigned atom = 0;
    Engine.AddCommand("drop", [&](int, char**) {
        Engine.DeleteAtom(atom);
        return 0;
    });
    Engine.AddCommand("again", [&](int, char**) {
        return Engine.ExecuteAtom(atom, 0, nullptr, nullptr, nullptr) ? 0 : -1;
    });
    const struct {
        const char* Body;
        const char* Line;
        bool RunsAgain;
    } cases[] = {
        {"declare N int\nwhile TRUE\n{\nN:Inc\n}",
         "Atom 'auto' stopped after 100000 steps: it looks like an endless loop", true},
        {"drop\necho after drop", "after drop", false},
        {"again", "Atom 'auto' not run: atoms nest too deeply", true},
    };
    for (const auto& c : cases) {
        atom = Compile(EventAtom("", c.Body));
        EXPECT_TRUE(Engine.ExecuteAtom(atom, 0, nullptr, nullptr, nullptr)) << c.Body;
        EXPECT_EQ(std::vector<std::string>{c.Line}, TakeConsole()) << c.Body;
        EXPECT_EQ(c.RunsAgain, Engine.ExecuteAtom(atom, 0, nullptr, nullptr, nullptr)) << c.Body;
        TakeConsole();
    }
    Run({"echo still here"});
    EXPECT_EQ(std::vector<std::string>{"still here"}, TakeConsole());
}

TEST_F(ScriptAtoms, CommandsRunningThemselvesStopAtABoundedDepth) {
    int runs = 0;
    Engine.AddCommand("button", [&](int, char**) {
        ++runs;
        return Engine.ExecuteCommand("button");
    });
    EXPECT_EQ(-1, Engine.ExecuteCommand("button"));
    EXPECT_EQ(int(ScriptEngine::MaxNesting), runs);
    EXPECT_EQ(std::vector<std::string>{"Commands nest too deeply; 'button' not run"},
              TakeConsole());
    Run({"echo fine again"});
    EXPECT_EQ(std::vector<std::string>{"fine again"}, TakeConsole());
}

TEST_F(ScriptAtoms, QueriesReadBareNamesAsMembersOfTheObject) {
    Node apple{"Apple", true}, pear{"Pear", true}, shut{"apple", false};
    unsigned query = Engine.CompileQuery("Text == \"Apple\" && Expanded");
    ASSERT_NE(0u, query);
    bool match = false;
    for (Node* node : {&apple, &pear, &shut}) {
        _RXTypeVar value{&Type, {}};
        value.Value.Pointer = node;
        ASSERT_TRUE(Engine.EvaluateQuery(query, &value, &match)) << node->Text;
        EXPECT_EQ(node == &apple, match) << node->Text;
    }
    unsigned unknown = Engine.CompileQuery("Colour == 1");
    _RXTypeVar value{&Type, {}};
    value.Value.Pointer = &apple;
    EXPECT_FALSE(Engine.EvaluateQuery(unknown, &value, &match)) << "a member the type lacks";
    EXPECT_FALSE(Engine.EvaluateQuery(query, nullptr, &match));
    Engine.FreeQuery(query);
    EXPECT_FALSE(Engine.EvaluateQuery(query, &value, &match));
    EXPECT_TRUE(TakeConsole().empty());

    EXPECT_EQ(0u, Engine.CompileQuery("Text == "));
    EXPECT_EQ(std::vector<std::string>{"Query 'Text == ': the expression ends too early"},
              TakeConsole());
}

// What scripts print across waits, and how long they wait, are checked end
// to end by tavuhost's script, text_tooltips and gallery cases.
TEST_F(ScriptAtoms, ScriptsStopAtWaitsAndResumeWhereTheyStopped) {
    Engine.AddCommand("waitframe", [&](int, char**) {
        EXPECT_TRUE(Engine.RequestWait(ScriptContext::Request::WaitFrame, 0));
        return 0;
    });
    ScriptInstance* script = Engine.LoadScript(
        "waiter", "declare I int\nwhile ${I} < 2\n{\nI:Inc\nwaitframe\n}\necho ${I}");
    ASSERT_NE(nullptr, script);
    uint32_t milliseconds = 0;
    EXPECT_EQ(ScriptEngine::ScriptState::WaitFrame, Engine.Resume(*script, milliseconds));
    EXPECT_EQ(nullptr, Engine.GetCurrentScript()) << "between frames no script runs";
    EXPECT_EQ(ScriptEngine::ScriptState::WaitFrame, Engine.Resume(*script, milliseconds));
    EXPECT_EQ(ScriptEngine::ScriptState::Ended, Engine.Resume(*script, milliseconds));
    EXPECT_EQ(ScriptEngine::ScriptState::Ended, Engine.Resume(*script, milliseconds));
    EXPECT_EQ(std::vector<std::string>{"2"}, TakeConsole()) << "the loop went on where it stopped";
    // Outside a script there is nothing to suspend: the caller waits itself.
    EXPECT_FALSE(Engine.RequestWait(ScriptContext::Request::WaitFrame, 0));
}

TEST_F(ScriptAtoms, TheScriptRecordTellsTheToolkitWhoIsRunning) {
    RXScript* seen = nullptr;
    bool inAtomSeen = true;
    std::string name;
    Engine.AddCommand("probe", [&](int, char**) {
        seen = Engine.GetCurrentScript();
        inAtomSeen = seen && *seen->InAtom;
        if (seen) name = Utf16ToUtf8(reinterpret_cast<const uint16_t*>(seen->Name));
        return 0;
    });
    unsigned atom = Compile(EventAtom("", "probe"));
    Engine.AddCommand("event", [&](int, char**) {
        return Engine.ExecuteAtom(atom, 0, nullptr, nullptr, nullptr) ? 0 : -1;
    });
    RunScript("probe", "Äpfel");
    EXPECT_NE(nullptr, seen);
    EXPECT_FALSE(inAtomSeen);
    EXPECT_EQ("Äpfel", name);
    RunScript("event", "caller");
    EXPECT_TRUE(inAtomSeen) << "an atom run from a script marks the script as in an atom";
    EXPECT_EQ("caller", name);
    Run({"probe"});
    EXPECT_EQ(nullptr, seen) << "the console is no script";

    ScriptInstance* script = Engine.LoadScript("answers", "");
    script->SetUserInput("yes");
    EXPECT_STREQ("yes", script->UserInput);
    script->SetUserInput(nullptr);
    EXPECT_EQ(nullptr, script->UserInput);
}

TEST_F(ScriptAtoms, PreParsedTextIsEvaluatedEachTimeItIsRead) {
    Run({"declare N int 1"});
    unsigned text = Engine.PreParseText("N is ${N}", false);
    unsigned sequence = Engine.PreParseText("${N}", true);
    char buffer[8];
    ASSERT_TRUE(Engine.RetrieveProcessedText(text, buffer, sizeof(buffer)));
    EXPECT_STREQ("N is 1", buffer);
    Run({"N:Set[12345]"});
    ASSERT_TRUE(Engine.RetrieveProcessedText(text, buffer, sizeof(buffer)));
    EXPECT_STREQ("N is 12", buffer) << "cut to the buffer, and terminated";
    ASSERT_TRUE(Engine.RetrieveOriginalText(text, buffer, sizeof(buffer)));
    EXPECT_STREQ("N is ${", buffer);
    _RXTypeVar value{};
    ASSERT_TRUE(Engine.RetrieveProcessedResult(sequence, value));
    EXPECT_EQ(Engine.FindType("int"), value.Type);
    EXPECT_EQ(12345, value.Value.Int);
    Engine.FreePreParsed(text);
    EXPECT_FALSE(Engine.RetrieveProcessedText(text, buffer, sizeof(buffer)));
    EXPECT_FALSE(Engine.RetrieveProcessedText(0, buffer, sizeof(buffer)));
}

TEST_F(ScriptAtoms, VariablesLetGoOfObjectsThatAreDestroyedOrWhoseTypeGoes) {
    Node apple{"Apple", true};
    unsigned persistent = Engine.RegisterPersistentClass("Tavukit");
    EXPECT_EQ(persistent, Engine.RegisterPersistentClass("tavukit"));
    EXPECT_NE(persistent, Engine.RegisterPersistentClass("Other"));
    Engine.SetPersistentClass(&Type, persistent);
    ScriptInstance* script = Engine.LoadScript("holder", "");
    script->Variables.Declare("Kept", &Type, nullptr);
    script->Variables.Declare("Address", Engine.FindType("int64"), nullptr);
    script->Variables.Find("Kept")->Data.Value.Pointer = &apple;
    script->Variables.Find("Address")->Data.Value.Pointer = &apple;

    Engine.InvalidatePersistentObject(persistent + 1, &apple);
    EXPECT_EQ(&apple, script->Variables.Find("Kept")->Data.Value.Pointer) << "another class";
    Engine.InvalidatePersistentObject(persistent, &apple);
    EXPECT_EQ(nullptr, script->Variables.Find("Kept")->Data.Value.Pointer);
    EXPECT_EQ(&apple, script->Variables.Find("Address")->Data.Value.Pointer)
        << "a value of a type outside the class is no reference";

    EXPECT_TRUE(Engine.RemoveType(&Type));
    EXPECT_EQ(nullptr, script->Variables.Find("Kept")) << "nothing may call a type that is gone";
    EXPECT_NE(nullptr, script->Variables.Find("Address"));
    EXPECT_FALSE(Engine.RemoveType(&Type));
    Engine.AddType(&Type);
}
