// The command "textedittext NAME" prints the text a "textedit" element
// holds, one output line for each of its lines, so that a script can read
// an editor back: the editor's script type has no member that gives it.
//
// The host reaches the element as any host would: through the toolkit's
// "UIElement" object and the editor's script type, and reads the lines from
// the fields of the exported class.
#pragma once

class ScriptEngine;

class TextEditElements {
public:
    explicit TextEditElements(ScriptEngine& engine);
    ~TextEditElements();
    TextEditElements(const TextEditElements&) = delete;
    TextEditElements& operator=(const TextEditElements&) = delete;

private:
    int TextCommand(int argc, char* argv[]);

    ScriptEngine& Engine;
};
