#include "CWinLock.h"

CWinLock::CWinLock(CRITICAL_SECTION* section, bool lockNow) : Section(section) {
    if (lockNow) Lock();
}

CWinLock::~CWinLock() {
    if (Locked) Unlock();
}

void CWinLock::SetLockObject(void* object) {
    if (Locked) Unlock();
    Section = static_cast<CRITICAL_SECTION*>(object);
}

void CWinLock::Lock() {
    if (!Section || Locked) return;
    EnterCriticalSection(Section);
    Locked = true;
}

void CWinLock::Unlock() {
    if (!Section || !Locked) return;
    Locked = false;
    LeaveCriticalSection(Section);
}
