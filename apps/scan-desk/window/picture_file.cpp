#include "apps/scan-desk/window/picture_file.h"

#include <windows.h>

// The system's picture library names the types of a larger windows.h.
#include <objbase.h>

#include <wincodec.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "apps/scan-desk/window/com_object.h"
#include "apps/scan-desk/window/system_text.h"

namespace scan_desk {

using set32::BitmapInfoHeader;
using set32::CDib;

namespace {

constexpr std::uint32_t bytesAPixel = 3;

std::wstring TextOf(HRESULT result) {
  switch (result) {
    case WINCODEC_ERR_COMPONENTNOTFOUND:
    case WINCODEC_ERR_UNKNOWNIMAGEFORMAT:
      return L"The system knows no picture of this kind.";
    case E_OUTOFMEMORY:
    case WINCODEC_ERR_IMAGESIZEOUTOFRANGE:
      return ErrorText(ERROR_NOT_ENOUGH_MEMORY);
    default:
      break;
  }
  if (HRESULT_FACILITY(result) == FACILITY_WIN32) return ErrorText(static_cast<DWORD>(HRESULT_CODE(result)));
  return L"This picture is damaged.";
}

// Whatever a file claims: three buffers of this size still fit into the memory of a 32-bit program.
bool Fits(UINT width, UINT height) {
  constexpr std::uint64_t mostBytes = 1U << 28;
  return (std::uint64_t{width} * bytesAPixel + 3) / 4 * 4 * height <= mostBytes;
}

void TurnOver(CDib& dib) {
  const std::size_t stride = dib.stride;
  for (std::uint8_t *low = dib.sourcePixels,
                    *high = low + (static_cast<std::size_t>(dib.header->height) - 1) * stride;
       low < high; low += stride, high -= stride) {
    std::swap_ranges(low, low + stride, high);
  }
}

// Until the panel's first refresh.
void ShowAsScanned(CDib& dib) {
  std::memcpy(dib.displayPixels, dib.sourcePixels, dib.imageSize);
}

HRESULT Convert(IWICImagingFactory& factory, IWICBitmapSource& from, const GUID& format,
                Com<IWICFormatConverter>& into) {
  const HRESULT result = factory.CreateFormatConverter(into.Place());
  if (FAILED(result)) return result;
  return into->Initialize(&from, format, WICBitmapDitherTypeNone, nullptr, 0, WICBitmapPaletteTypeCustom);
}

// By way of 32 bits, since Wine turns only some kinds into 24 at once.
HRESULT Decode(const std::wstring& path, CDib& into) {
  const ComLibrary library;
  Com<IWICImagingFactory> factory;
  Com<IWICBitmapDecoder> decoder;
  Com<IWICBitmapFrameDecode> frame;
  Com<IWICFormatConverter> withAlpha, pixels;
  HRESULT result = CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                    reinterpret_cast<void**>(factory.Place()));
  if (SUCCEEDED(result)) {
    result = factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnDemand,
                                                decoder.Place());
  }
  if (SUCCEEDED(result)) result = decoder->GetFrame(0, frame.Place());
  UINT width = 0, height = 0;
  double across = 0, down = 0;
  if (SUCCEEDED(result)) result = frame->GetSize(&width, &height);
  if (SUCCEEDED(result) && (width == 0 || height == 0)) result = WINCODEC_ERR_BADIMAGE;
  if (SUCCEEDED(result) && !Fits(width, height)) result = WINCODEC_ERR_IMAGESIZEOUTOFRANGE;
  if (SUCCEEDED(result)) result = frame->GetResolution(&across, &down);
  if (SUCCEEDED(result)) result = Convert(*factory.Get(), *frame.Get(), GUID_WICPixelFormat32bppBGRA, withAlpha);
  if (SUCCEEDED(result)) result = Convert(*factory.Get(), *withAlpha.Get(), GUID_WICPixelFormat24bppBGR, pixels);
  if (FAILED(result)) return result;
  if (!MakeTrueColour(into, static_cast<int>(width), static_cast<int>(height), across, down)) return E_OUTOFMEMORY;
  result = pixels->CopyPixels(nullptr, into.stride, into.imageSize, into.sourcePixels);
  if (FAILED(result)) return result;
  TurnOver(into);
  ShowAsScanned(into);
  return result;
}

// Pixels of a metre; none where it isn't told or can't be.
std::int32_t AMetre(double dotsPerInch) {
  constexpr double metresAnInch = 0.0254, most = 1e6;
  return dotsPerInch >= 1 && dotsPerInch <= most ? static_cast<std::int32_t>(std::lround(dotsPerInch / metresAnInch))
                                                 : 0;
}

}  // namespace

bool MakeTrueColour(CDib& empty, int width, int height, double dotsPerInchX, double dotsPerInchY) {
  std::unique_ptr<std::uint8_t[]> block(new (std::nothrow) std::uint8_t[sizeof(BitmapInfoHeader)]);
  if (block == nullptr) return false;
  BitmapInfoHeader header{};
  header.headerSize = sizeof header;
  header.width = width;
  header.height = height;
  header.planes = 1;
  header.bitCount = bytesAPixel * 8;
  header.pixelsPerMetreX = AMetre(dotsPerInchX);
  header.pixelsPerMetreY = AMetre(dotsPerInchY);
  std::memcpy(block.get(), &header, sizeof header);
  empty.header = reinterpret_cast<BitmapInfoHeader*>(block.release());
  empty.headerOwner = set32::header_owner::object;
  empty.ComputeMetrics();
  if (!empty.AllocatePixels(true) || empty.displayPixels == nullptr || empty.savedPixels == nullptr) {
    empty.Empty();
    return false;
  }
  ShowAsScanned(empty);
  return true;
}

bool ReadPicture(const std::wstring& path, CDib& into, std::wstring& trouble) {
  const HRESULT result = Decode(path, into);
  if (SUCCEEDED(result)) return true;
  into.Empty();
  trouble = TextOf(result) + L"\n" + path;
  return false;
}

}  // namespace scan_desk
