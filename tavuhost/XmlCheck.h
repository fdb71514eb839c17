// A quick look at the shape of an interface file, to say where it breaks:
// every tag closed, closing tags in order (ignoring case, as the toolkit
// reads them), comments, declarations and quoted values ended. It does not
// read the document; the toolkit does that, and its verdict is the one that
// counts. This only finds the line that an author should look at.
#pragma once

#include <string>

struct XmlProblem {
    int Line = 0;
    std::string Message;
};

class XmlCheck {
public:
    // False, with the first problem, when the text is not well formed.
    static bool Check(const std::string& text, XmlProblem& problem);
};
