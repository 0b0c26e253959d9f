// The variables that a thread has of its own: in this library those by which the compiler's run time knows what is
// thrown.
#pragma once

// The thread ends: what it had goes.
void DropThreadStorage();
// The library goes: what any thread still has goes with it.
void DropAllThreadStorage();
