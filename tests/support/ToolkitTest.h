// The fixture of tests that need a running toolkit: a fresh manager, entered
// through F1 with a FakeHost and initialised, on a driven clock. Each test
// starts from a manager as it is right after the module loaded, with the
// element factories that registered themselves then.
#pragma once

#include "CUIManager.h"
#include "FakeHost.h"
#include "TAVUElement.h"
#include "XMLParser.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

// Returns the manager to the state of a freshly loaded module: no host, not
// initialised, no elements; the self-registered factories stay.
void ResetToolkit();

class ToolkitTest : public ::testing::Test {
protected:
    static constexpr unsigned kStartTick = 100000;

    void SetUp() override;
    void TearDown() override;

    // Makes an element of the plain base class under parent (the screen when null).
    TAVUElement* MakeElement(const char* name, TAVUElement* parent = nullptr);
    // The same, placed at x, y and sized w by h.
    TAVUElement* MakeBox(const char* name, int x, int y, int w, int h,
                         TAVUElement* parent = nullptr);

    // The first element of XML text; the document lives until the test ends.
    XMLNode* Parse(const std::string& text);

    FakeHost Host;
    std::vector<std::unique_ptr<XMLParser>> Documents;
};
