// What the compiler's run time would leave in the host's process at each unload of the library.
#pragma once

// The library is about to be unloaded, not ended with its process. On the thread that frees it, before any of the
// library's objects goes.
void ExpectUnload();
