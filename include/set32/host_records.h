// The records that the host and the panel share, byte for byte.
//
// ScanSettings and ScanConfigItem are stored in profiles as hexadecimal text, so their layout is a file format:
// all integers little-endian, doubles IEEE 754 binary64, every offset held below. The host owns every record; the
// panel keeps the pointer to ScanSettings and edits it in place, and copies the others.
//
// Threads: all records belong to the host's thread, on which the panel runs as well.
#pragma once

#include <cstddef>
#include <cstdint>

namespace set32 {

// ScanSettings::mode
namespace mode {
inline constexpr std::uint32_t colour = 1;
inline constexpr std::uint32_t gray = 2;
inline constexpr std::uint32_t blackWhite = 4;
inline constexpr std::uint32_t jpegColour = 8;
inline constexpr std::uint32_t jpegGray = 16;
}  // namespace mode

// ScanSettings::resolutionId; the values are also the bits of DeviceLimits::resolutionMask.
namespace resolution {
inline constexpr std::uint32_t dpi75 = 2;
inline constexpr std::uint32_t dpi100 = 4;
inline constexpr std::uint32_t dpi150 = 8;
inline constexpr std::uint32_t dpi200 = 16;
inline constexpr std::uint32_t dpi300 = 32;
inline constexpr std::uint32_t dpi400 = 64;
inline constexpr std::uint32_t dpi500 = 128;
inline constexpr std::uint32_t dpi600 = 256;
inline constexpr std::uint32_t dpi1200 = 512;
inline constexpr std::uint32_t dpi2400 = 1024;
inline constexpr std::uint32_t dpi4800 = 2048;
inline constexpr std::uint32_t userDefined = 4096;
inline constexpr std::uint32_t dpi9600 = 8192;
inline constexpr std::uint32_t dpi19200 = 16384;
}  // namespace resolution

// ScanSettings::sizeId
namespace size_id {
inline constexpr std::uint32_t photo3x5 = 0;
inline constexpr std::uint32_t photo4x6 = 1;
inline constexpr std::uint32_t photo5x7 = 2;
inline constexpr std::uint32_t letter = 3;
inline constexpr std::uint32_t a4 = 4;
inline constexpr std::uint32_t b5 = 5;
inline constexpr std::uint32_t businessCard = 6;
inline constexpr std::uint32_t userDefined = 7;
inline constexpr std::uint32_t legal = 17;
inline constexpr std::uint32_t film = 29;
inline constexpr std::uint32_t a5 = 37;
inline constexpr std::uint32_t statement = 38;
inline constexpr std::uint32_t executive = 39;
inline constexpr std::uint32_t none = 0xFFFFFFFF;  // the size list holds no entry for the record's size
}  // namespace size_id

// ScanSettings::units; also the index in the unit combo.
namespace unit {
inline constexpr std::uint32_t inch = 0;
inline constexpr std::uint32_t centimetre = 1;
inline constexpr std::uint32_t pixel = 2;
}  // namespace unit

// ScanSettings::paperSource
namespace paper_source {
inline constexpr std::uint32_t flatbed = 0;
inline constexpr std::uint32_t feeder = 1;
inline constexpr std::uint32_t positive = 2;
inline constexpr std::uint32_t negative = 3;
}  // namespace paper_source

// ScanSettings::descreenKind
namespace descreen_kind {
inline constexpr std::uint32_t newspaper = 1;
inline constexpr std::uint32_t magazine = 2;
inline constexpr std::uint32_t picturePrint = 3;
}  // namespace descreen_kind

// FrameCommand::action
namespace frame_action {
inline constexpr std::uint32_t select = 1;
inline constexpr std::uint32_t added = 2;
inline constexpr std::uint32_t removed = 3;
inline constexpr std::uint32_t allGone = 4;
}  // namespace frame_action

// The settings of one scan. Lengths are inches, resolutions whole dots per inch.
struct ScanSettings {
  std::uint32_t mode;          // one of mode::
  std::uint32_t resolutionId;  // one of resolution::
  std::int32_t dpi;
  std::uint32_t useDefaults;  // 1: the default adjustments are in force, 0: the user's own
  std::int32_t brightness;    // -100 to 100
  std::int32_t contrast;      // -100 to 100
  std::uint32_t bandGamma;    // 0: gammaAll serves all bands, 1: the three band gammas serve
  std::uint32_t reserved28;
  double gammaAll;
  double gammaRed;
  double gammaGreen;
  double gammaBlue;
  char name[20];           // leftover of the record's creation; nothing reads it back
  std::uint32_t hostWord;  // belongs to the host
  std::uint32_t sizeId;    // one of size_id::
  std::uint32_t reserved92;
  double width;
  double height;
  std::uint32_t rotated;  // set by the host; 1: the custom size is remembered with width and height exchanged
  std::uint32_t units;    // one of unit::
  double customWidth;     // remembered for size_id::userDefined
  double customHeight;
  std::int32_t frameLeft;  // pixels of the preview picture
  std::int32_t frameTop;
  std::uint32_t highBitDepth;  // 1: output with more than 8 bits a band
  std::uint32_t autoCrop;      // 1: the area follows the automatic crop
  std::uint32_t descreen;
  std::uint32_t descreenKind;  // one of descreen_kind::, 0 in a new record
  std::int32_t jpegQuality;    // 0 to 10
  std::uint32_t paperSource;   // one of paper_source::
  std::uint8_t singleFile;
  std::uint8_t reserved169[3];
  std::int32_t saturation;     // -100 to 100
  std::int32_t hue;            // -180 to 180
  std::int32_t sharpness;      // -100 to 100
  std::uint32_t frameCommand;  // 32-bit pointer to a FrameCommand while a message is under way, else 0
  std::uint32_t reserved188;
};

static_assert(sizeof(ScanSettings) == 192);
static_assert(offsetof(ScanSettings, mode) == 0);
static_assert(offsetof(ScanSettings, resolutionId) == 4);
static_assert(offsetof(ScanSettings, dpi) == 8);
static_assert(offsetof(ScanSettings, useDefaults) == 12);
static_assert(offsetof(ScanSettings, brightness) == 16);
static_assert(offsetof(ScanSettings, contrast) == 20);
static_assert(offsetof(ScanSettings, bandGamma) == 24);
static_assert(offsetof(ScanSettings, reserved28) == 28);
static_assert(offsetof(ScanSettings, gammaAll) == 32);
static_assert(offsetof(ScanSettings, gammaRed) == 40);
static_assert(offsetof(ScanSettings, gammaGreen) == 48);
static_assert(offsetof(ScanSettings, gammaBlue) == 56);
static_assert(offsetof(ScanSettings, name) == 64);
static_assert(offsetof(ScanSettings, hostWord) == 84);
static_assert(offsetof(ScanSettings, sizeId) == 88);
static_assert(offsetof(ScanSettings, reserved92) == 92);
static_assert(offsetof(ScanSettings, width) == 96);
static_assert(offsetof(ScanSettings, height) == 104);
static_assert(offsetof(ScanSettings, rotated) == 112);
static_assert(offsetof(ScanSettings, units) == 116);
static_assert(offsetof(ScanSettings, customWidth) == 120);
static_assert(offsetof(ScanSettings, customHeight) == 128);
static_assert(offsetof(ScanSettings, frameLeft) == 136);
static_assert(offsetof(ScanSettings, frameTop) == 140);
static_assert(offsetof(ScanSettings, highBitDepth) == 144);
static_assert(offsetof(ScanSettings, autoCrop) == 148);
static_assert(offsetof(ScanSettings, descreen) == 152);
static_assert(offsetof(ScanSettings, descreenKind) == 156);
static_assert(offsetof(ScanSettings, jpegQuality) == 160);
static_assert(offsetof(ScanSettings, paperSource) == 164);
static_assert(offsetof(ScanSettings, singleFile) == 168);
static_assert(offsetof(ScanSettings, reserved169) == 169);
static_assert(offsetof(ScanSettings, saturation) == 172);
static_assert(offsetof(ScanSettings, hue) == 176);
static_assert(offsetof(ScanSettings, sharpness) == 180);
static_assert(offsetof(ScanSettings, frameCommand) == 184);
static_assert(offsetof(ScanSettings, reserved188) == 188);

// One saved scan configuration.
struct ScanConfigItem {
  ScanSettings settings;
  std::uint8_t editable;   // 1: the item takes up the panel's changes
  std::uint8_t deletable;  // 1: the user may delete it
  std::uint8_t reserved[6];
};

static_assert(sizeof(ScanConfigItem) == 200);
static_assert(offsetof(ScanConfigItem, editable) == 192);
static_assert(offsetof(ScanConfigItem, deletable) == 193);
static_assert(offsetof(ScanConfigItem, reserved) == 194);

// Lives for one message: the sender lays it in its own memory below 4 GB (pointer_word.h), sets
// ScanSettings::frameCommand, sends, and sets frameCommand back to 0.
struct FrameCommand {
  std::uint32_t index;   // zero-based frame
  std::uint32_t action;  // one of frame_action::
};

static_assert(sizeof(FrameCommand) == 8);
static_assert(offsetof(FrameCommand, action) == 4);

// What the device can do; copied on each call.
struct DeviceLimits {
  std::uint16_t modeMask;        // bits mode::colour, mode::gray, mode::blackWhite
  std::uint16_t resolutionMask;  // bits resolution::
  std::uint16_t maxDpi;          // highest value that the resolution edit accepts
  std::uint16_t minDpi;          // ignored: the panel has its own rule
};

static_assert(sizeof(DeviceLimits) == 8);
static_assert(offsetof(DeviceLimits, resolutionMask) == 2);
static_assert(offsetof(DeviceLimits, maxDpi) == 4);
static_assert(offsetof(DeviceLimits, minDpi) == 6);

// DeviceCaps::sourceCaps()
namespace source_caps {
inline constexpr std::uint32_t feeder = 0x20000;
inline constexpr std::uint32_t transparency = 0x40000;
}  // namespace source_caps

// Thirty words of capabilities; the panel reads two and passes the others unread.
struct DeviceCaps {
  std::uint32_t words[30];

  static constexpr int restrictedMaxDpiWord = 8;
  static constexpr int sourceCapsWord = 22;

  // Highest dpi while the mode is JPEG, the source is the feeder or descreen is on.
  std::uint32_t restrictedMaxDpi() const { return words[restrictedMaxDpiWord]; }
  std::uint32_t sourceCaps() const { return words[sourceCapsWord]; }
};

static_assert(sizeof(DeviceCaps) == 120);

// A place in client coordinates of the parent window; right and bottom lie outside.
struct PanelRect {
  std::int32_t left;
  std::int32_t top;
  std::int32_t right;
  std::int32_t bottom;
};

static_assert(sizeof(PanelRect) == 16);

}  // namespace set32
