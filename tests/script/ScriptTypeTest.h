// A running toolkit whose host knows the eight basic types, with helpers that
// make member and method requests as a host's script engine would.
#pragma once

#include "RXTypeDefinition.h"
#include "ToolkitTest.h"

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

class ScriptTypeTest : public ToolkitTest {
protected:
    void SetUp() override {
        for (const char* name :
             {"string", "int", "int64", "bool", "float", "point3f", "filepath", "uint"}) {
            HostTypes.push_back(std::make_unique<RXTypeDefinition>(name));
            Host.HostTypes[name] = HostTypes.back().get();
        }
        ToolkitTest::SetUp();
    }

    // DispatchMember / DispatchMethod of type on object, with text arguments.
    int Member(RXTypeDefinition* type, void* object, const char* name,
               std::vector<std::string> args = {}) {
        RXObjectData data{};
        data.Value.Pointer = object;
        Arguments argv(args);
        Result = _RXTypeVar{};
        return type->DispatchMember(data, name, argv.Count, argv.Items.get(), Result);
    }
    int Method(RXTypeDefinition* type, void* object, const char* name,
               std::vector<std::string> args = {}) {
        RXObjectData data{};
        data.Value.Pointer = object;
        Arguments argv(args);
        return type->DispatchMethod(data, name, argv.Count, argv.Items.get());
    }

    // The last member result as text, read by its type's name.
    std::string ResultText() const {
        std::string type = TypeName();
        char text[64];
        if (type == "string") return Result.Value.Text ? Result.Value.Text : "(null)";
        if (type == "int")
            snprintf(text, sizeof(text), "%d", Result.Value.Int);
        else if (type == "uint")
            snprintf(text, sizeof(text), "%u", Result.Value.UInt);
        else if (type == "bool")
            return Result.Value.UInt64 ? "TRUE" : "FALSE";
        else if (type == "float")
            snprintf(text, sizeof(text), "%.2f", Result.Value.Float);
        else
            return type;
        return text;
    }
    std::string TypeName() const { return Result.Type ? Result.Type->TypeName : "null"; }
    // A member request as one line of text: the dispatch answer, then the
    // result when there is one ("1 10", "0", "-1").
    std::string Get(RXTypeDefinition* type, void* object, const char* name,
                    std::vector<std::string> args = {}) {
        int answer = Member(type, object, name, std::move(args));
        return answer == 1 ? "1 " + ResultText() : std::to_string(answer);
    }

    _RXTypeVar Result{};
    std::vector<std::unique_ptr<RXTypeDefinition>> HostTypes;

private:
    // Exactly as many pointers as arguments, with no terminator after them:
    // a handler that reads past its arguments is caught by the sanitizer.
    struct Arguments {
        explicit Arguments(std::vector<std::string>& args)
            : Items(new char*[args.size()]), Count(int(args.size())) {
            for (size_t i = 0; i < args.size(); ++i)
                Items[i] = args[i].data();
        }
        std::unique_ptr<char*[]> Items;
        int Count;
    };
};
