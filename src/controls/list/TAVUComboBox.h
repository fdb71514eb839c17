// "combobox": a one-line control that shows the chosen row of its list box
// and opens on a click to show the list below it. Choosing a row closes it;
// so does a press anywhere outside it.
#pragma once

#include "TAVUElement.h"

class TAVUListBox;

class TAVU_API TAVUComboBox : public TAVUElement {
public:
    TAVUComboBox(const char* type, TAVUElement* parent, const char* name);

    ~TAVUComboBox() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void RecalculateSize(bool recurse) override;
    void Render() override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnLMouseDown(_Point2i& point) override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    void OnLMouseDownOther(TAVUElement* other) override;
    RXTypeDefinition* GetRXType() override;

    TAVUTexture* Texture = nullptr;
    TAVUTexture* ButtonTexture = nullptr;
    TAVUFont* Font = nullptr;
    unsigned Border = 0;
    unsigned FullHeight = 0; // the height while open, the list's included
    unsigned ButtonWidth = 0;
    TAVUEmbeddedScript* OnSelect = nullptr;
    TAVUListBox* List = nullptr;
    bool Open = false;
    unsigned ClosedHeight = 0;
    unsigned SelectedID = 0; // the row shown, 0 for none

private:
    void Close();
    void DrawSelection();
};
