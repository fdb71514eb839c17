#include "TAVUCommandEntry.h"

#include "CUIManager.h"
#include "Module.h"
#include "StringHelpers.h"
#include "TAVUConsole.h"
#include "TAVUConsoleSelector.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"

#include <cstring>
#include <optional>
#include <string>

namespace {
const char kTypeWord[] = "commandentry";
} // namespace

TAVUFactory<TAVUCommandEntry> g_TAVUCommandEntryFactory(kTypeWord);

TAVUCommandEntry::TAVUCommandEntry(const char* type, TAVUElement* parent, const char* name)
    : TAVUTextEntry(type, parent, name) {}

TAVUCommandEntry::~TAVUCommandEntry() {
    FreeHistory();
    StrFree(Console);
    if (OnCommandScript) OnCommandScript->Delete();
}

void TAVUCommandEntry::FreeHistory() {
    for (unsigned i = 0; History && i < CommandHistory; ++i)
        StrFree(History[i]);
    delete[] History;
    History = nullptr;
    HistoryNext = HistoryBrowse = HistoryCount = 0;
}

// The ring starts with one empty line, so that browsing always finds a line.
bool TAVUCommandEntry::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUTextEntry::FromXML(node, templateNode)) return false;
    TAVUControlHelpers::ReplaceText(Console,
                                    TAVUControlHelpers::ReadString(node, templateNode, "Console"));
    if (TAVUEmbeddedScript* script =
            EmbeddedScriptFromXML(node, "OnCommand", templateNode, "string Text")) {
        if (OnCommandScript) OnCommandScript->Delete();
        OnCommandScript = script;
    }
    FreeHistory();
    unsigned capacity = TAVUControlHelpers::ReadInt(node, templateNode, "CommandHistory", 0);
    CommandHistory = capacity > LargestCommandHistory ? unsigned(LargestCommandHistory) : capacity;
    if (CommandHistory) {
        History = new char*[CommandHistory]();
        AddHistory("");
    }
    return true;
}

bool TAVUCommandEntry::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUTextEntry::IsTypeOf(type);
}

void TAVUCommandEntry::AddHistory(const char* line) {
    if (!History || CommandHistory == 0) return;
    StrFree(History[HistoryNext]);
    History[HistoryNext] = StrDuplicate(line);
    ++HistoryNext;
    if (HistoryCount < HistoryNext) HistoryCount = HistoryNext;
    if (unsigned(HistoryNext) >= CommandHistory) HistoryNext = 0;
    HistoryBrowse = HistoryNext;
}

// Until the ring has wrapped, its last filled slot is the newest line.
bool TAVUCommandEntry::RecallLast() {
    int slot = HistoryCount > 0 ? HistoryCount - 1 : 0;
    const char* line = History ? History[slot] : nullptr;
    if (!line || !line[0]) return false;
    ReplaceText(line, Limit());
    return true;
}

void TAVUCommandEntry::HandleEnter() {
    if (Length == 0 || !Text) return;
    if (strcmp(Text, "!") == 0) {
        if (!RecallLast()) return;
    } else {
        AddHistory(Text);
    }
    std::string line = Text;
    TAVUElementWatch watch(this);
    {
        std::optional<TAVUConsoleSelector> selector;
        if (Console && Console[0]) selector.emplace(Console);
        OnCommand(line.data());
    }
    if (watch.Alive()) ClearText();
}

// The text is the caller's own copy: the command may delete this entry.
void TAVUCommandEntry::OnCommand(char* text) {
    if (OnCommandScript) {
        char* argv[] = {text};
        OnCommandScript->Execute(1, argv);
    } else {
        g_pHost->ExecuteCommand(text);
    }
}

void TAVUCommandEntry::PasteClipboard() {
    PasteBytes(true);
}

bool TAVUCommandEntry::OnKeyDown(unsigned key) {
    TAVUElementWatch watch(this);
    switch (key) {
    case KeyTab:
        Complete();
        break;
    case KeyEnter:
        HandleEnter();
        break;
    case KeyEscape:
        if (Caret != 0) ClearText();
        break;
    case KeyPageUp:
    case KeyPageDown:
        ScrollConsole(key);
        break;
    case KeyUp:
    case KeyDown:
        if (g_UIManager.Shift)
            ScrollConsole(key);
        else
            Browse(key == KeyUp ? -1 : 1);
        break;
    default:
        return TAVUTextEntry::OnKeyDown(key);
    }
    if (watch.Alive()) FinishKeyDown(key);
    return true;
}

// Browsing and completion tell nobody: only typing changes the text.
void TAVUCommandEntry::Browse(int step) {
    if (step < 0 && HistoryCount == 0) return;
    HistoryBrowse += step;
    if (HistoryBrowse < 0) HistoryBrowse = HistoryCount - 1;
    if (HistoryBrowse >= HistoryCount) HistoryBrowse = 0;
    if (History && HistoryCount > 0) ReplaceText(History[HistoryBrowse], Limit());
}

void TAVUCommandEntry::Complete() {
    if (Caret == 0 || !Text) return;
    ReplaceText(g_pHost->CompleteCommand(Text, g_UIManager.Shift), Limit());
}

void TAVUCommandEntry::ScrollConsole(unsigned key) {
    TAVUElement* output = Parent ? Parent->FindChild("output") : nullptr;
    if (!output || !output->IsTypeOf("console")) return;
    auto* console = static_cast<TAVUConsole*>(output);
    if (key == KeyPageUp)
        console->HandlePageUp();
    else if (key == KeyPageDown)
        console->HandlePageDown();
    else if (key == KeyUp)
        console->HandleUp();
    else
        console->HandleDown();
}
