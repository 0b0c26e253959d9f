// The part of the TWAIN protocol, version 2, that the data source and its applications speak: numbers and records as
// the public standard tells them.
//
// Records are packed to 2 bytes and travel between modules of different compilers. Handles are those of the system's
// global memory. Lengths and resolutions are numbers of 16 bits before and 16 behind the point.
#pragma once

#include <cstddef>
#include <cstdint>

namespace twain {

namespace group {
inline constexpr std::uint32_t control = 1, image = 2, application2 = 0x20000000, source2 = 0x40000000;
}

// What a triplet is about.
namespace data {
inline constexpr std::uint16_t null = 0, capability = 1, event = 2, identity = 3, parent = 4, pendingTransfers = 5,
                               setupMemory = 6, setupFile = 7, status = 8, userInterface = 9, transferGroup = 0xA,
                               customData = 0xC, statusText = 0x11, imageInfo = 0x101, imageLayout = 0x102,
                               imageMemory = 0x103, imageNative = 0x104, imageFile = 0x105, entryPoint = 0x403;
}

namespace message {
inline constexpr std::uint16_t null = 0, get = 1, getCurrent = 2, getDefault = 3, getFirst = 4, getNext = 5, set = 6,
                               reset = 7, querySupport = 8, transferReady = 0x101, closeRequest = 0x102,
                               closeOk = 0x103, openManager = 0x301, closeManager = 0x302, openSource = 0x401,
                               closeSource = 0x402, disable = 0x501, enable = 0x502, enableForSettings = 0x503,
                               processEvent = 0x601, endTransfer = 0x701;
}

// What an operation returns.
namespace result {
inline constexpr std::uint16_t success = 0, failure = 1, checkStatus = 2, cancel = 3, sourceEvent = 4,
                               notSourceEvent = 5, transferDone = 6, endOfList = 7;
}

// Why an operation failed.
namespace condition {
inline constexpr std::uint16_t success = 0, bummer = 1, lowMemory = 2, maxConnections = 4, operationError = 5,
                               badProtocol = 9, badValue = 10, sequenceError = 11, capUnsupported = 13,
                               capBadOperation = 14, fileWriteError = 22, noMedia = 29;
}

namespace cap {
inline constexpr std::uint16_t transferCount = 1, compression = 0x100, pixelType = 0x101, units = 0x102,
                               mechanism = 0x103, feederEnabled = 0x1002, feederLoaded = 0x1003,
                               supportedCaps = 0x1005, autoFeed = 0x1007, indicators = 0x100B,
                               paperDetectable = 0x100D, controllable = 0x100E, deviceOnline = 0x100F,
                               duplex = 0x1012, enableForSettings = 0x1014, customData = 0x1015, brightness = 0x1101,
                               contrast = 0x1103, gamma = 0x1108, fileFormat = 0x110C, physicalWidth = 0x1111,
                               physicalHeight = 0x1112, frames = 0x1114, nativeResolutionX = 0x1116,
                               nativeResolutionY = 0x1117, resolutionX = 0x1118, resolutionY = 0x1119,
                               maxFrames = 0x111A, bitOrder = 0x111C, pixelFlavor = 0x111F, planarChunky = 0x1120,
                               supportedSizes = 0x1122, threshold = 0x1123, bitDepth = 0x112B, jpegQuality = 0x1153;
}

// The type of a capability's values.
namespace type {
inline constexpr std::uint16_t int8 = 0, int16 = 1, int32 = 2, uint8 = 3, uint16 = 4, uint32 = 5, boolean = 6,
                               fixed = 7, frame = 8;
}

namespace container {
inline constexpr std::uint16_t array = 3, enumeration = 4, oneValue = 5, range = 6, dontCare = 0xFFFF;
}

// The bits that a question for support is answered with.
namespace support {
inline constexpr std::uint32_t get = 1, set = 2, getDefault = 4, getCurrent = 8, reset = 0x10;
}

namespace pixel_type {
inline constexpr std::uint16_t blackWhite = 0, gray = 1, rgb = 2;
}
namespace unit {
inline constexpr std::uint16_t inches = 0, centimetres = 1, pixels = 5;
}
namespace mechanism {
inline constexpr std::uint16_t native = 0, file = 1, memory = 2;
}
namespace file_format {
inline constexpr std::uint16_t bmp = 2, jfif = 4;
}
namespace supported_size {
inline constexpr std::uint16_t none = 0, a4 = 1, b5 = 2, letter = 3, legal = 4, executive = 10, businessCard = 53;
}
namespace memory_flag {
inline constexpr std::uint32_t applicationOwns = 1, pointer = 8, handle = 0x10;
}

inline constexpr std::uint32_t dontCare32 = 0xFFFFFFFF;

using Handle = void*;

#pragma pack(push, 2)

struct Fixed {
  std::int16_t whole;
  std::uint16_t fraction;
};

struct Frame {
  Fixed left, top, right, bottom;
};

struct Version {
  std::uint16_t majorNumber, minorNumber, language, country;
  char info[34];
};

struct Identity {
  std::uint32_t id;  // the manager's
  Version version;
  std::uint16_t protocolMajor, protocolMinor;
  std::uint32_t groups;
  char manufacturer[34];
  char family[34];
  char name[34];
};

struct UserInterface {
  std::uint16_t shows, modal;
  Handle parent;
};

struct Event {
  Handle event;  // the system's message
  std::uint16_t message;
};

struct Status {
  std::uint16_t condition, data;
};

struct StatusText {
  Status status;
  std::uint32_t size;  // bytes, with the zero at the end
  Handle text;         // UTF-8
};

struct Capability {
  std::uint16_t cap, containerType;
  Handle container;
};

// The head of each container; the items lie right behind it, but for one value and a range, which hold theirs.
struct OneValue {
  std::uint16_t itemType;
  std::uint32_t item;
};
struct Array {
  std::uint16_t itemType;
  std::uint32_t count;
};
struct Enumeration {
  std::uint16_t itemType;
  std::uint32_t count, current, standard;
};
struct Range {
  std::uint16_t itemType;
  std::uint32_t low, high, step, standard, current;
};

struct CustomData {
  std::uint32_t length;
  Handle data;
};

struct PendingTransfers {
  std::uint16_t count;
  std::uint32_t endOfJob;
};

struct ImageInfo {
  Fixed resolutionX, resolutionY;
  std::int32_t width, length;
  std::int16_t samples;
  std::int16_t bitsPerSample[8];
  std::int16_t bitsPerPixel;
  std::uint16_t planar;
  std::int16_t pixelType;
  std::uint16_t compression;
};

struct ImageLayout {
  Frame frame;
  std::uint32_t document, page, frameNumber;
};

struct SetupMemory {
  std::uint32_t least, most, preferred;
};

struct Memory {
  std::uint32_t flags, length;
  void* memory;
};

struct ImageMemory {
  std::uint16_t compression;
  std::uint32_t bytesPerRow, columns, rows, offsetX, offsetY, bytesWritten;
  Memory memory;
};

struct SetupFile {
  char name[256];
  std::uint16_t format;
  std::int16_t volume;
};

#if defined(_WIN32)
#define TWAIN_CALL __stdcall
#else
#define TWAIN_CALL
#endif

// The memory functions that a manager of version 2 lends.
struct EntryPoint {
  std::uint32_t size;
  std::uint16_t(TWAIN_CALL* manager)(Identity*, Identity*, std::uint32_t, std::uint16_t, std::uint16_t, void*);
  Handle(TWAIN_CALL* allocate)(std::uint32_t);
  void(TWAIN_CALL* free)(Handle);
  void*(TWAIN_CALL* lock)(Handle);
  void(TWAIN_CALL* unlock)(Handle);
};

#pragma pack(pop)

// Of the manager, and of a source, which isn't told whom it is.
using ManagerEntry = std::uint16_t(TWAIN_CALL*)(Identity* origin, Identity* destination, std::uint32_t group,
                                                std::uint16_t data, std::uint16_t message, void* record);
using SourceEntry = std::uint16_t(TWAIN_CALL*)(Identity* origin, std::uint32_t group, std::uint16_t data,
                                               std::uint16_t message, void* record);

inline constexpr std::size_t handleSize = sizeof(Handle);
static_assert(sizeof(Fixed) == 4 && sizeof(Frame) == 16 && sizeof(Version) == 42 && sizeof(Identity) == 156);
static_assert(sizeof(UserInterface) == 4 + handleSize && sizeof(Event) == 2 + handleSize);
static_assert(sizeof(Status) == 4 && sizeof(StatusText) == 8 + handleSize);
static_assert(sizeof(Capability) == 4 + handleSize && sizeof(CustomData) == 4 + handleSize);
static_assert(sizeof(OneValue) == 6 && sizeof(Array) == 6 && sizeof(Enumeration) == 14 && sizeof(Range) == 22);
static_assert(sizeof(PendingTransfers) == 6 && sizeof(ImageInfo) == 42 && sizeof(ImageLayout) == 28);
static_assert(sizeof(SetupMemory) == 12 && sizeof(Memory) == 8 + handleSize);
static_assert(sizeof(ImageMemory) == 34 + handleSize && sizeof(SetupFile) == 260);
static_assert(sizeof(EntryPoint) == 4 + 5 * handleSize);

}  // namespace twain
