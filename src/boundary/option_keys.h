// The one table of files, sections and keys that are read by the profile calls, each with its default.
//
// Sections match without regard to letter case: "Option" and "OPTION" are one. The keys of the profile of scan
// configurations, which profile objects serve, stand in profile/profile_keys.h.
#pragma once

#include <cstddef>
#include <cstdint>

namespace set32 {

// Files beside the module; the other names come from the module settings.
namespace module_file {
inline constexpr const char* settings = "QUIRNMFP.ini";
inline constexpr const char* hardwareOptions = "QUIRNHW.ini";
}  // namespace module_file

struct IntegerKey {
  const char* section;
  const char* name;
  std::int32_t fallback;
};

// At most so many bytes of the value count.
struct TextKey {
  const char* section;
  const char* name;
  const char* fallback;
  std::size_t maxBytes;
};

// Of the module settings; nobody here writes them.
namespace module_key {
inline constexpr TextKey runtimeOptionsName{"INIFiles", "QUIRNHTEMP_INI", "QUIRNHTp.INI", 49};
inline constexpr TextKey profileName{"INIFiles", "QUIRNMFP_PROFILE", "QUIRNPrf.ini", 49};
inline constexpr TextKey scannerListName{"INIFiles", "QUIRNSCANNERLIST", "QUIRNSLT.dat", 49};
inline constexpr IntegerKey driverType{"RunTime", "DriverType", 3};

// USB identifiers that count as a scanner of this kind, tried in this order; each missing one has the same default.
inline constexpr TextKey deviceIds[] = {
    {"DeviceID", "DeviceID0", "VID_0C5A&PID_0E72", 99}, {"DeviceID", "DeviceID1", "VID_0C5A&PID_0E72", 99},
    {"DeviceID", "DeviceID2", "VID_0C5A&PID_0E72", 99}, {"DeviceID", "DeviceID3", "VID_0C5A&PID_0E72", 99},
    {"DeviceID", "DeviceID4", "VID_0C5A&PID_0E72", 99}, {"DeviceID", "DeviceID5", "VID_0C5A&PID_0E72", 99},
    {"DeviceID", "DeviceID6", "VID_0C5A&PID_0E72", 99}, {"DeviceID", "DeviceID7", "VID_0C5A&PID_0E72", 99},
    {"DeviceID", "DeviceID8", "VID_0C5A&PID_0E72", 99}, {"DeviceID", "DeviceID9", "VID_0C5A&PID_0E72", 99},
};
}  // namespace module_key

// Of the hardware options.
namespace hardware_key {
inline constexpr IntegerKey highBitControl{"Option", "36BitsColorMode", 1};
inline constexpr TextKey dialogPlace{"OPTION", "AdvancePos", "", 255};
}  // namespace hardware_key

// Of the run-time options; `defaultDevice` alone is written.
namespace option_key {
inline constexpr IntegerKey uiFace{"Option", "UIFace", 1};
inline constexpr IntegerKey oem{"Option", "OEM", 0};
inline constexpr TextKey productName{"Identity", "ProductName", "Scan Desk", 255};
inline constexpr TextKey application{"OPTION", "AppName", "", 255};
inline constexpr TextKey highBitApplications{"OPTION", "Enable36BitApps", "", 255};
inline constexpr IntegerKey lowLevelDriver{"OPTION", "LLDriverInterface", 0};
inline constexpr IntegerKey paperSourceControls{"OPTION", "EnablePaperSource", 0};
inline constexpr IntegerKey paperSource{"OPTION", "PaperSource", 0};
inline constexpr IntegerKey hasCrop{"OPTION", "HasCrop", 1};
inline constexpr IntegerKey feederAutoCrop{"ADFTA", "ADFAutoCrop", 0};
inline constexpr TextKey defaultDevice{"Device", "Default", "NoDefault", 255};
}  // namespace option_key

}  // namespace set32
