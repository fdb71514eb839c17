// A script engine whose console lines are collected, with helpers to run
// lines and scripts in the way the host does.
#pragma once

#include "HostObjects.h"
#include "ScriptEngine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class EngineFixture : public ::testing::Test {
protected:
    EngineFixture() : Objects(Engine, Width, Height) {
        Engine.SetConsole([this](const std::string& line) { Console.push_back(line); });
    }

    // Runs lines as -e commands are run.
    void Run(std::initializer_list<const char*> lines) {
        for (const char* line : lines)
            Engine.ExecuteCommand(line);
    }

    // The text of a data sequence as echo would print it.
    std::string Text(const std::string& sequence) { return Engine.Substitute(sequence); }

    // Runs a whole script to its end, frame after frame; answers how many
    // times it stopped to wait.
    int RunScript(const std::string& text, const std::string& name = "test") {
        ScriptInstance* script = Engine.LoadScript(name, text);
        if (!script) return -1;
        int waits = 0;
        uint32_t milliseconds = 0;
        while (Engine.Resume(*script, milliseconds) != ScriptEngine::ScriptState::Ended &&
               waits < 1000)
            ++waits;
        return waits;
    }

    std::vector<std::string> TakeConsole() {
        std::vector<std::string> lines;
        lines.swap(Console);
        return lines;
    }

    ScriptEngine Engine;
    uint64_t Width = 640;
    uint64_t Height = 480;
    HostObjects Objects; // Math, Display and Script, as tavuhost has them
    std::vector<std::string> Console;
};
