// "commandbutton": a button that runs a line of script when it is clicked,
// optionally with its output sent to a console of its choosing.
#pragma once

#include "TAVUButton.h"

class TAVU_API TAVUCommandButton : public TAVUButton {
public:
    TAVUCommandButton(const char* type, TAVUElement* parent, const char* name);

    ~TAVUCommandButton() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    bool OnLMouseUp(_Point2i& point) override;

    char* Command = nullptr;
    char* Console = nullptr;
};
