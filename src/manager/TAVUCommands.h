// The script commands "UI" (load, reload, unload, reset), "UIElement"
// (list, show, hide, toggle, kill), "MessageBox" and "InputBox". Each takes
// its own name as argv[0]. The two boxes block nothing: the command returns
// at once and a script reads the answer from "UserInput" once it arrives.
#pragma once

int UICommand(int argc, char* argv[]);
int UIElementCommand(int argc, char* argv[]);
int MessageBoxCommand(int argc, char* argv[]);
int InputBoxCommand(int argc, char* argv[]);
