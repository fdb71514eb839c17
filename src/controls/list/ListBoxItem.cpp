#include "ListBoxItem.h"

#include "StringHelpers.h"

ListBoxItem::ListBoxItem(TAVUListBox* owner, const char* text, unsigned color, const char* value,
                         unsigned id)
    : ID(id), Color(color), Owner(owner) {
    SetText(text);
    SetValue(value);
}

ListBoxItem::~ListBoxItem() {
    StrFree(Text);
    Text = const_cast<char*>("Error");
    StrFree(Value);
}

void ListBoxItem::SetText(const char* text) {
    StrFree(Text);
    Text = text ? StrDuplicate(text) : nullptr;
}

void ListBoxItem::SetValue(const char* value) {
    StrFree(Value);
    Value = StrDuplicate(value ? value : "");
}
