// The script commands "UI" (load, reload, unload, reset) and "UIElement"
// (list, show, hide, toggle, kill). Each takes its own name as argv[0].
#pragma once

int UICommand(int argc, char* argv[]);
int UIElementCommand(int argc, char* argv[]);
