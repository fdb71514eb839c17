// A lock that can be handed around without knowing what it locks.
#pragma once

#include "TavuExport.h"

class TAVU_API CPortableLock {
public:
    virtual ~CPortableLock() = default;
    // The object to lock; the meaning of the pointer is the implementation's.
    virtual void SetLockObject(void* object) = 0;
    virtual void Lock() = 0;
    virtual void Unlock() = 0;
    virtual bool IsLocked() = 0;
};
