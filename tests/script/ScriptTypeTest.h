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
    using Calls = std::vector<std::vector<std::string>>;

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

    // Every name of a type's tables: a member or method added to the type
    // without a row here, or a row whose handler lost its case, fails. Each is
    // asked on no object, then with every shorter argument list, which it must
    // refuse without reading past it, then in full. A member row is the name,
    // the result it gives and its arguments; a method row the name and its
    // arguments, none where an argument may be left out.
    void ExpectAnswered(RXTypeDefinition* type, void* object, const Calls& members,
                        const Calls& methods) {
        EXPECT_EQ(size_t(type->Members.Count()), members.size()) << type->TypeName;
        EXPECT_EQ(size_t(type->Methods.Count()), methods.size()) << type->TypeName;
        for (const Calls* calls : {&members, &methods})
            for (const auto& row : *calls) {
                SCOPED_TRACE(row[0]);
                auto first = row.begin() + (calls == &members ? 2 : 1);
                auto call = [&](void* on, size_t count) {
                    std::vector<std::string> args(first, first + count);
                    return calls == &members ? Member(type, on, row[0].c_str(), args)
                                             : Method(type, on, row[0].c_str(), args);
                };
                size_t all = size_t(row.end() - first);
                EXPECT_EQ(call(nullptr, all), 0);
                for (size_t count = 0; count < all; ++count)
                    EXPECT_EQ(call(object, count), 0) << count << " arguments";
                EXPECT_EQ(call(object, all), 1);
                EXPECT_TRUE(calls != &members || ResultText() == row[1]) << ResultText();
            }
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
