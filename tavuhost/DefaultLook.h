// The look tavuhost gives an interface that brings none of its own: one
// template for each element type that draws, named after the type, so that
// every element without a "Template" of its own reads it. It is loaded before
// the user's files, so a file's template of the same name replaces ours.
//
// The look is compiled in (the templates as text, the textures as the host's
// own "#fill" textures tinted by ColorMask): it needs no file beside the
// program, so it works alike in the build tree, in an installed tavuhost and
// on Windows, where no install rule or path search could go wrong.
// No template carries "Children": a node without "Children" would take them.
#pragma once

#include <string>

class TavukitModule;
struct Image;

struct DefaultLookTemplate {
    const char* Name; // the element type whose elements it dresses
    const char* Keys; // the template's contents, without the <Template> tags
};

class DefaultLook {
public:
    static unsigned Count();
    static const DefaultLookTemplate& At(unsigned index);
    // The template's whole text, "<Template>...</Template>".
    static std::string Text(const DefaultLookTemplate& entry);
    // Why a type that can appear in a file gets no template; null when it gets one
    // or when the type is unknown to the look.
    static const char* WhyPlain(const char* type);

    // The look's pictures (a tick, arrows, framed fields), named from '#' on
    // as the host's own textures are; false for any other name.
    static bool Picture(const char* name, Image& picture);

    // Enters every template into the manager; false, with the reason in
    // error, when the module cannot take templates.
    static bool Load(TavukitModule& module, std::string& error);
};
