#include "XMLTestTree.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

using xmltest::Dump;

namespace {

const std::string kDataDir = std::string(TAVU_TEST_DATA_DIR) + "/xml/";

std::string WriteTemporary(const std::string& name, const std::string& content) {
    std::filesystem::path path = std::filesystem::temp_directory_path() / name;
    std::ofstream(path, std::ios::binary) << content;
    return path.string();
}

struct FileParse {
    bool Ok;
    std::string Tree;
    std::string Error;
};

FileParse ParsePath(const std::string& path) {
    XMLParser parser;
    bool ok = parser.ParseFile(path.c_str());
    return {ok, Dump(parser.Root), parser.ErrorText};
}

} // namespace

TEST(XMLFile, EmptyMissingAndDeclarationOnlyFiles) {
    XMLParser parser;
    EXPECT_FALSE(parser.ParseFile((kDataDir + "empty.xml").c_str()));
    EXPECT_EQ(parser.Root, nullptr);
    EXPECT_STREQ(parser.ErrorText, "Unknown Error");
    auto declaration = ParsePath(kDataDir + "declaration.xml");
    EXPECT_TRUE(declaration.Ok);
    EXPECT_EQ(declaration.Tree, "p:xml version=1.0 encoding=UTF-8\n");
    for (const char* name : {"no-such-file.xml", "regress"}) {
        auto parsed = ParsePath(kDataDir + name);
        EXPECT_FALSE(parsed.Ok) << name;
        EXPECT_EQ(parsed.Error, "Could not open file '" + kDataDir + name + "'");
    }
    XMLParser wide;
    EXPECT_FALSE(wide.ParseFile(L"no-such-file.xml"));
    EXPECT_STREQ(wide.ErrorText, "Could not open file 'no-such-file.xml'");
}

TEST(XMLFile, AnyThreeBytesStartingWithEFAreDroppedAsAMark) {
    EXPECT_EQ(ParsePath(WriteTemporary("tavu_bom.xml", "\xEF\xBB\xBF<a/>")).Tree, "e:a\n");
    EXPECT_EQ(ParsePath(WriteTemporary("tavu_fakebom.xml", "\xEFxy<a/>")).Tree, "e:a\n");
    EXPECT_EQ(ParsePath(WriteTemporary("tavu_nobom.xml", "<a/>")).Tree, "e:a\n");
    // A text in memory has no mark: the three bytes are text outside elements.
    auto buffer = xmltest::ParseText("\xEF\xBB\xBF<a/>");
    EXPECT_FALSE(buffer.Ok);
    EXPECT_EQ(buffer.Error, "Bad text outside elements: \xEF\xBB\xBF");
}

TEST(XMLFile, KnowsItsNameAndFolderAsEntities) {
    std::string path = WriteTemporary("tavu_names.xml", "<a n=\"&filename;\">&filepath;</a>");
    std::string slashed = path;
    for (char& c : slashed)
        if (c == '\\') c = '/';
    std::string folder = slashed.substr(0, slashed.rfind('/'));
    auto parsed = ParsePath(path);
    ASSERT_TRUE(parsed.Ok) << parsed.Error;
    EXPECT_EQ(parsed.Tree, "e:a n=" + slashed + "\n  t:" + folder + "\n");
    auto buffer = xmltest::ParseText("<a n=\"&filename;\"/>");
    EXPECT_EQ(buffer.Tree, "e:a n=UNKNOWN-ENTITY\n");
}

TEST(XMLFile, FileAndBufferAgreeAcrossPieces) {
    std::string text = "<r>";
    for (int i = 0; i < 3000; ++i)
        text += "<item id=\"" + std::to_string(i) + "\">caf\xC3\xA9 &amp; <![CDATA[x]]></item>\n";
    text += "</r>";
    std::string path = WriteTemporary("tavu_agree.xml", text);
    auto fromFile = ParsePath(path);
    auto fromBuffer = xmltest::ParseText(text);
    ASSERT_TRUE(fromFile.Ok) << fromFile.Error;
    EXPECT_EQ(fromFile.Tree, fromBuffer.Tree);
}

TEST(XMLFile, RegressionInputsEndCleanly) {
    // Inputs that once broke a parse; each must parse or fail with a message
    // text, and file and memory must agree.
    for (const auto& entry : std::filesystem::directory_iterator(kDataDir + "regress")) {
        std::ifstream in(entry.path(), std::ios::binary);
        std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        XMLParser fromFile;
        bool fileOk = fromFile.ParseFile(entry.path().string().c_str());
        size_t skip = text.size() >= 3 && static_cast<unsigned char>(text[0]) == 0xEF ? 3 : 0;
        std::string body = text.substr(skip);
        XMLParser fromBuffer;
        bool bufferOk = !body.empty() && fromBuffer.ParseBuffer(body.data(), body.size());
        EXPECT_EQ(fileOk, bufferOk) << entry.path();
        EXPECT_EQ(Dump(fromFile.Root), Dump(fromBuffer.Root)) << entry.path();
    }
}
