// The top-level objects through which scripts reach the toolkit:
// "UIElement[name or ID]", "UserInput" and "Tavukit".
#pragma once

struct _RXTypeVar;

bool UIElementObject(int argc, char* argv[], _RXTypeVar& result);
bool UserInputObject(int argc, char* argv[], _RXTypeVar& result);
bool TavukitObject(int argc, char* argv[], _RXTypeVar& result);
