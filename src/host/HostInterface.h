// The host object given to F1: script services first, render services second.
#pragma once

#include "HostRenderer.h"
#include "HostServices.h"

class HostInterface : public HostServices, public HostRenderer {
protected:
    ~HostInterface() = default;
};
