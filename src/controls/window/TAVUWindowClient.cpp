#include "TAVUWindowClient.h"

#include "StringHelpers.h"
#include "TAVUFactory.h"

namespace {
const char kTypeWord[] = "windowclient";
} // namespace

TAVUFactory<TAVUWindowClient> g_TAVUWindowClientFactory(kTypeWord);

TAVUWindowClient::TAVUWindowClient(const char* type, TAVUElement* parent, const char* name)
    : TAVUFrame(type, parent, name), OwnerWindow(parent) {}

bool TAVUWindowClient::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

void TAVUWindowClient::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (OwnerWindow) OwnerWindow->OnNotify(source, code, value);
}

void TAVUWindowClient::OnCreate() {
    if (OwnerWindow) OwnerWindow->OnCreate();
}
