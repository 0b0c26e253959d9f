// The one function of the data source, by which a manager hands on what an application asks.
#include <windows.h>

#include <cwchar>
#include <filesystem>
#include <memory>

#include "apps/data-source/core/data_source.h"
#include "apps/data-source/window/dialog_window.h"
#include "apps/data-source/window/global_memory.h"
#include "apps/data-source/window/messenger_window.h"
#include "apps/data-source/window/system_jpeg.h"
#include "apps/dll/run_time_end.h"
#include "apps/dll/thread_storage.h"

namespace {

using namespace data_source;

// Where an installer or a person says, or beside the source.
std::filesystem::path PagesFolder() {
  wchar_t told[MAX_PATH] = L"";
  const DWORD length = GetEnvironmentVariableW(L"SCANNER_PAGES", told, MAX_PATH);
  if (length > 0 && length < MAX_PATH) return told;
  return scan_desk::ProgramFolder() + L"pages";
}

struct Module {
  SystemJpeg jpeg;
  Scanner scanner{PagesFolder(), &jpeg};
  GlobalMemory memory;
  MessengerWindow messenger{memory, [this](std::uint16_t message) { source.Deliver(message); }};
  WindowedDialog dialog{scanner,
                        {.scan = [this](const set32::ScanSettings& settings,
                                        const std::vector<Area>& areas) { return source.OnScan(settings, areas); },
                         .close = [this] { source.OnClose(); }}};
  DataSource source{{scanner, memory, messenger, dialog}};
};

// Never freed: when a program ends without closing the source its windows are gone before this library's objects
// would go, and so may be the libraries that they need.
Module& TheModule() {
  static Module* const module = std::make_unique<Module>().release();
  return *module;
}

}  // namespace

extern "C" __declspec(dllexport) std::uint16_t
    __stdcall DS_Entry(twain::Identity*, std::uint32_t group, std::uint16_t data, std::uint16_t message,
                       void* record) {
  return TheModule().source.Handle(group, data, message, record);
}

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* endOfProcess) {
  if (reason == DLL_PROCESS_DETACH && endOfProcess == nullptr) ExpectUnload();
  if (reason == DLL_THREAD_DETACH) DropThreadStorage();
  return TRUE;
}
