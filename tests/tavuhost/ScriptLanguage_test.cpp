#include "EngineFixture.h"

#include "HostValueType.h"

#include <cstring>

namespace {

// An object of the toolkit's kind as scripts meet it: a named thing with a
// child, reached through a top-level object.
struct Widget {
    const char* Name;
    int Width;
    Widget* Child;
    int Shown = 0;
};

enum : uint32_t { WidthMember = 1, ChildMember, NameMember, ArgsMember };
enum : uint32_t { ShowMethod = 1, FailMethod };

class WidgetType : public RXTypeDefinition {
public:
    explicit WidgetType(ScriptEngine& engine) : RXTypeDefinition("widget"), Engine(engine) {
        AddMember(WidthMember, "Width", nullptr);
        AddMember(ChildMember, "Child", nullptr);
        AddMember(NameMember, "Name", nullptr);
        AddMember(ArgsMember, "Args", nullptr);
        AddMethod(ShowMethod, "Show", nullptr);
        AddMethod(FailMethod, "Fail", nullptr);
    }
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override {
        auto* widget = static_cast<Widget*>(object.Value.Pointer);
        if (!widget) return false;
        switch (member->ID) {
        case WidthMember:
            result.Type = Engine.FindType("int");
            result.Value.Int64 = widget->Width;
            return true;
        case ChildMember:
            if (!widget->Child) return false;
            result.Type = this;
            result.Value.Pointer = widget->Child;
            return true;
        case NameMember:
            result.Type = Engine.FindType("string");
            result.Value.Text = widget->Name;
            return true;
        case ArgsMember: {
            std::string joined = std::to_string(argc);
            for (int i = 0; i < argc; ++i)
                joined += std::string("|") + argv[i];
            result.Type = Engine.FindType("string");
            result.Value.Text = Engine.TempText(joined);
            return true;
        }
        }
        return false;
    }
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override {
        auto* widget = static_cast<Widget*>(object.Value.Pointer);
        if (!widget || method->ID != ShowMethod) return false;
        widget->Shown += argc > 0 ? atoi(argv[0]) : 1;
        return true;
    }
    // Like an element's name: copied with at most size bytes, unterminated when it fills them.
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override {
        auto* widget = static_cast<Widget*>(object.Value.Pointer);
        if (!widget) return false;
        strncpy(buffer, widget->Name, size);
        return true;
    }
    ScriptEngine& Engine;
};

class ScriptLanguage : public EngineFixture {
protected:
    ScriptLanguage() : Type(Engine) {
        Engine.AddType(&Type);
        Engine.AddTopLevelObject("Widget", [this](int argc, char* argv[], _RXTypeVar& result) {
            if (argc > 0 && strcmp(argv[0], "child") == 0)
                result.Value.Pointer = &Child;
            else if (argc > 0)
                return false;
            else
                result.Value.Pointer = &Root;
            result.Type = &Type;
            return true;
        });
    }
    ~ScriptLanguage() { Engine.RemoveType(&Type); }

    WidgetType Type;
    Widget Child{"Label", 40, nullptr};
    Widget Root{"Window", 300, &Child};
};

} // namespace

// How words split is checked end to end by tavuhost's script_forms case.
// Members walk and nest; what does not resolve reads NULL, and (exists) asks
// without failing.
TEST_F(ScriptLanguage, DataSequencesWalkMembersAndNest) {
    const std::pair<const char*, const char*> cases[] = {
        {"${Widget} ${Widget.Width}", "Window 300"},
        {"${Widget.Child} ${Widget.Child.Width}", "Label 40"},
        {"${Widget[child]}", "Label"},
        {"${Widget.Args[a,\"b c\"]}", "2|a|b c"},
        {"${Widget.Args[\"x,y]\"]}", "1|x,y]"},
        {"${Widget.Args[]}", "0"},
        {"${Widget.Args[${Math.Calc[${Widget.Width}+${Widget.Child.Width}]}]}", "1|340"},
        {"${Nothing} ${Widget.Nothing} ${Widget.Child.Child}", "NULL NULL NULL"},
        {"${Widget[missing]}", "NULL"},
        {"${Widget(exists)} ${Nothing(exists)} ${Widget.Child.Child(exists)}", "TRUE FALSE FALSE"},
        {"x ${Widget", "x ${Widget"}, // an unclosed sequence stays as written
        {"${}|${Widget.}", "NULL|NULL"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.second, Text(c.first)) << c.first;
}

TEST_F(ScriptLanguage, ATextFormThatFillsItsBufferStillEnds) {
    std::string longName(ScriptEngine::TextBufferSize + 100, 'n');
    Child.Name = longName.c_str();
    std::string text = Text("${Widget.Child}");
    EXPECT_EQ(ScriptEngine::TextBufferSize - 1, text.size());
}

TEST_F(ScriptLanguage, DeepNestingReadsNullInsteadOfRecursingForever) {
    std::string deep;
    for (int i = 0; i < 2000; ++i)
        deep += "${Widget.Args[";
    deep += "x";
    for (int i = 0; i < 2000; ++i)
        deep += "]}";
    std::string text = Text(deep);
    EXPECT_NE(std::string::npos, text.find("NULL"));
    EXPECT_LT(text.size(), 4000u);
}

// What chains print, and the messages of those that cannot run, are checked
// end to end by tavuhost's script_forms case; here what they answer.
TEST_F(ScriptLanguage, MethodChainsRunInOrderOnTheLastValue) {
    EXPECT_EQ(1, Engine.ExecuteCommand("Widget.Child:Show[2]:Show[3]:Show"));
    EXPECT_EQ(6, Child.Shown);
    EXPECT_EQ(1, Engine.ExecuteCommand("Widget:Show[${Widget.Child.Width}]"));
    EXPECT_EQ(40, Root.Shown);
    EXPECT_EQ(0, Engine.ExecuteCommand("Widget:Fail:Show")) << "a failed method ends the chain";
    EXPECT_EQ(40, Root.Shown);
    for (const char* wrong : {"Widget:Explode", "Nothing.Child:Show", "Widget:Show extra"})
        EXPECT_EQ(-1, Engine.ExecuteCommand(wrong)) << wrong;
}

// Loops, conditions, declarations, and variables that keep their own text,
// are checked end to end by tavuhost's script_forms, flow and elements cases.
TEST_F(ScriptLanguage, LongElseIfChainsPickTheirBranch) {
    std::string chain = "declare V int 4321\nif ${V} == 0\n{\necho 0\n}\n";
    for (int i = 1; i < 20000; ++i)
        chain += "else if ${V} == " + std::to_string(i) + " {\necho " + std::to_string(i) + "\n}\n";
    chain += "else\n{\necho none\n}\necho end\n";
    RunScript(chain);
    EXPECT_EQ((std::vector<std::string>{"4321", "end"}), TakeConsole());
}

// The errors of blocks, and how deep they may nest, are checked end to end
// by tavuhost's syntax_errors case; atoms are only defined in scripts.
TEST_F(ScriptLanguage, SyntaxErrorsNameTheirLine) {
    const std::pair<const char*, const char*> cases[] = {
        {"atom A(int)\n{\n}\n",
         "Syntax error in script bad line 1: parameter 'int' is not 'TYPE NAME'"},
        {"atom 9A()\n{\n}\n", "Syntax error in script bad line 1: '9A' is not an atom name"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(nullptr, Engine.LoadScript("bad", c.first)) << c.first;
        EXPECT_EQ(std::vector<std::string>{c.second}, TakeConsole()) << c.first;
    }
}

TEST_F(ScriptLanguage, HostileTextIsRefusedOrReadWithoutHarm) {
    // Fragments of the language, put together at random (a fixed seed, so
    // the same text every run), must never crash, hang or corrupt the engine.
    static const char* const pieces[] = {
        "${",       "}",      "[", "]",         "\"",      "\\",   ",",      ".",  ":",
        "(exists)", "Widget", "S", "Math.Calc", "declare", "if",   "while",  "do", "else",
        "{",        "\n",     " ", "Show",      "Set",     "1",    "-",      "/0", "atom",
        "return",   "This",   "(", ")",         ";",       "echo", "string", "int"};
    uint32_t seed = 12345;
    auto next = [&seed]() { return (seed = seed * 1103515245u + 12345u) >> 16; };
    for (int round = 0; round < 300; ++round) {
        std::string text;
        for (int i = 0, count = int(next() % 40); i < count; ++i)
            text += pieces[next() % (sizeof(pieces) / sizeof(pieces[0]))];
        Engine.ExecuteCommand(text.c_str());
        Engine.Substitute(text);
        if (ScriptInstance* script = Engine.LoadScript("noise", text)) {
            uint32_t milliseconds = 0;
            Engine.Resume(*script, milliseconds);
        }
        unsigned atom = Engine.CompileAtom(text.c_str(), text.size());
        Engine.ExecuteAtom(atom, 0, nullptr, nullptr, nullptr);
        Engine.CompileQuery(text.c_str());
        Engine.ClearTemporaries();
    }
    std::string many(200000, ',');
    EXPECT_EQ("200001", Text("${Widget.Args[" + many + "]}").substr(0, 6))
        << "many arguments take linear time";
    TakeConsole();
    Run({"echo still sound"});
    EXPECT_EQ(std::vector<std::string>{"still sound"}, TakeConsole());
}
