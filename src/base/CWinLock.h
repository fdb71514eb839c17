// A CPortableLock on a critical section. Leaving scope unlocks what is still locked.
#pragma once

#include "CPortableLock.h"
#include "Platform.h"

class TAVU_API CWinLock : public CPortableLock {
public:
    explicit CWinLock(CRITICAL_SECTION* section = nullptr, bool lockNow = false);
    ~CWinLock() override;
    CWinLock(const CWinLock&) = delete;
    CWinLock& operator=(const CWinLock&) = delete;

    void SetLockObject(void* object) override;
    void Lock() override;
    void Unlock() override;
    bool IsLocked() override { return Locked; }

private:
    CRITICAL_SECTION* Section;
    bool Locked = false;
};
