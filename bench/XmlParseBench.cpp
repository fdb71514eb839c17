// BM_XmlParse/<library>/<document>: bytes per second for a whole parse, from
// text in memory to a finished tree (expat: to the last callback), and the
// tree's deletion, for the same documents with each library.
#include "InterfaceDocument.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <benchmark/benchmark.h>

#include <string>

#if defined(TAVU_BENCH_TINYXML2)
#include <tinyxml2.h>
#endif
#if defined(TAVU_BENCH_PUGIXML)
#include <pugixml.hpp>
#endif
#if defined(TAVU_BENCH_EXPAT)
#include <expat.h>
#endif

namespace {

const std::string& Document(size_t bytes) {
    static const std::string large = InterfaceDocument::Generate(8 << 20);
    static const std::string small = InterfaceDocument::Generate(20 << 10);
    return bytes > (1 << 20) ? large : small;
}

template <typename Parse> void RunParse(benchmark::State& state, size_t bytes, Parse parse) {
    const std::string& text = Document(bytes);
    for (auto _ : state) {
        bool parsed = parse(text);
        if (!parsed) {
            state.SkipWithError("parse failed");
            return;
        }
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(text.size()));
}

bool ParseTavukit(const std::string& text) {
    XMLParser parser;
    bool parsed = parser.ParseBuffer(text.data(), text.size());
    benchmark::DoNotOptimize(parser.Root);
    return parsed;
}

#if defined(TAVU_BENCH_TINYXML2)
bool ParseTinyxml2(const std::string& text) {
    tinyxml2::XMLDocument document;
    bool parsed = document.Parse(text.data(), text.size()) == tinyxml2::XML_SUCCESS;
    benchmark::DoNotOptimize(document.RootElement());
    return parsed;
}
#endif

#if defined(TAVU_BENCH_PUGIXML)
bool ParsePugixml(const std::string& text) {
    pugi::xml_document document;
    bool parsed = document.load_buffer(text.data(), text.size());
    benchmark::DoNotOptimize(document.first_child());
    return parsed;
}
#endif

#if defined(TAVU_BENCH_EXPAT)
void XMLCALL OnStart(void* data, const XML_Char*, const XML_Char**) {
    ++*static_cast<size_t*>(data);
}
void XMLCALL OnEnd(void*, const XML_Char*) {}
void XMLCALL OnText(void* data, const XML_Char*, int length) {
    *static_cast<size_t*>(data) += size_t(length);
}

bool ParseExpat(const std::string& text) {
    XML_Parser parser = XML_ParserCreate(nullptr);
    size_t seen = 0;
    XML_SetUserData(parser, &seen);
    XML_SetElementHandler(parser, OnStart, OnEnd);
    XML_SetCharacterDataHandler(parser, OnText);
    bool parsed = XML_Parse(parser, text.data(), int(text.size()), 1) == XML_STATUS_OK;
    XML_ParserFree(parser);
    benchmark::DoNotOptimize(seen);
    return parsed;
}
#endif

void Register(const char* library, bool (*parse)(const std::string&)) {
    const struct {
        const char* Name;
        size_t Bytes;
    } documents[] = {{"interface8MB", 8 << 20}, {"interface20KB", 20 << 10}};
    for (const auto& document : documents) {
        std::string name = std::string("BM_XmlParse/") + library + "/" + document.Name;
        size_t bytes = document.Bytes;
        benchmark::RegisterBenchmark(name.c_str(), [parse, bytes](benchmark::State& state) {
            RunParse(state, bytes, parse);
        })->Unit(benchmark::kMillisecond);
    }
}

const bool kRegistered = [] {
    Register("tavukit", ParseTavukit);
#if defined(TAVU_BENCH_TINYXML2)
    Register("tinyxml2", ParseTinyxml2);
#endif
#if defined(TAVU_BENCH_PUGIXML)
    Register("pugixml", ParsePugixml);
#endif
#if defined(TAVU_BENCH_EXPAT)
    Register("expat", ParseExpat);
#endif
    return true;
}();

} // namespace
