#include "CTAVUTab.h"

#include "StringHelpers.h"
#include "TAVUControlHelpers.h"

CTAVUTab::CTAVUTab(const char* name, TAVUTabControl* owner) : Owner(owner) {
    Rename(name);
}

CTAVUTab::~CTAVUTab() {
    StrFree(Name);
}

void CTAVUTab::Rename(const char* name) {
    TAVUControlHelpers::ReplaceText(Name, name ? name : "");
}
