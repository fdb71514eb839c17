// The inspector of tavuhost --window: F12 opens an overlay over the
// interface with three tools at once. Outlines: a thin line around every
// visible element (F11 adds the hidden ones). Element info: the element under
// the pointer is outlined and named; a click selects it, lists its facts,
// ancestors and children in the overlay and prints them. Event log: console
// lines and element events, newest last; a beacon in the corner counts the
// lines that came while the overlay was closed.
//
// It stands between the window and the host: while it is open the pointer,
// the buttons and its own keys are its, and the interface sees none of them.
// The script commands "inspector" and "inspect" reach the same tools without
// a window, for tests and pictures.
#pragma once

#include "ElementAccess.h"
#include "ElementSource.h"
#include "HostInput.h"

#include <deque>
#include <string>
#include <vector>

class OverlayPainter;
class ScriptEngine;
class TavukitModule;

class Inspector final : public HostInput {
public:
    enum : unsigned { ToggleKey = 0x7B, HiddenKey = 0x7A }; // F12, F11
    enum : size_t { LogLines = 200 };

    Inspector(TavukitModule& module, ScriptEngine& engine, HostInput& host,
              const std::string& prefix = "TAVU");
    ~Inspector();
    Inspector(const Inspector&) = delete;
    Inspector& operator=(const Inspector&) = delete;

    // From now on F12 is the inspector's and the beacon shows, as in a
    // window; a plain run leaves F12 to the interface and paints nothing of
    // the inspector's until a script asks for it.
    void Arm() { Armed = true; }
    bool IsOpen() const { return Open; }
    void SetOpen(bool open);

    // The event log's two sources.
    void Heard(const std::string& line);
    void EventStarted(TAVUElement* element, unsigned atom);
    // An interface file the toolkit read: where a selected element's keys are looked up.
    void InterfaceLoaded(const std::string& path) { Sources.FileLoaded(path); }

    void Paint(OverlayPainter& painter);

    // HostInput
    void PointerMoved(int x, int y) override;
    void ButtonChanged(bool left, bool down) override;
    void WheelTurned(int offset) override;
    void KeyChanged(unsigned code, bool down) override;
    void Resized(int width, int height) override;

private:
    int InspectorCommand(int argc, char* argv[]);
    int InspectCommand(int argc, char* argv[]);
    void AddToLog(const std::string& line);
    void Select(TAVUElement* element);
    // What a click on an element prints: its facts, ancestors and children,
    // then its node, its template and the keys it read.
    std::vector<std::string> DescribeFacts(TAVUElement* element);
    std::vector<std::string> DescribeSource(TAVUElement* element);
    TAVUElement* ElementAt(int x, int y);
    TAVUElement* FindByName(const std::string& fullName);
    void PaintOutlines(OverlayPainter& painter);
    void PaintInfo(OverlayPainter& painter);
    void PaintLog(OverlayPainter& painter);
    int LogHeight() const;
    void PaintBeacon(OverlayPainter& painter);
    CUIManager* Manager() const;

    TavukitModule& Module;
    ScriptEngine& Engine;
    HostInput& Host;
    ElementSource Sources;
    bool Armed = false;
    bool Open = false;
    bool ShowHidden = false;
    int PointerX = -1;
    int PointerY = -1;
    unsigned SelectedID = 0;
    std::vector<std::string> SelectedSource; // its node and keys, read at selection
    std::deque<std::string> Log;
    unsigned Unseen = 0; // lines logged while the overlay was closed
};
