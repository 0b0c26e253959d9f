#include "apps/data-source/window/system_jpeg.h"

#include <windows.h>

// The system's picture library names the types of a larger windows.h.
#include <objbase.h>

#include <ocidl.h>
#include <wincodec.h>

#include <algorithm>
#include <string>

#include "apps/scan-desk/window/com_object.h"

namespace data_source {

using scan_desk::Com;
using scan_desk::ComLibrary;

namespace {

HRESULT MakeFactory(Com<IWICImagingFactory>& factory) {
  return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                          reinterpret_cast<void**>(factory.Place()));
}

const GUID& FormatOf(const ScannedImage& image) {
  return SamplesOf(image.kind) == 3 ? GUID_WICPixelFormat24bppBGR : GUID_WICPixelFormat8bppGray;
}

// Red and blue change places, there and back.
void SwapBands(ScannedImage& image) {
  if (SamplesOf(image.kind) != 3) return;
  for (int y = 0; y < image.height; ++y) {
    std::uint8_t* pixel = image.Row(y).data();
    for (int x = 0; x < image.width; ++x, pixel += 3) std::swap(pixel[0], pixel[2]);
  }
}

HRESULT SetQuality(IPropertyBag2& options, int quality) {
  std::wstring name = L"ImageQuality";
  PROPBAG2 option{};
  option.pstrName = name.data();
  VARIANT value{};
  value.vt = VT_R4;
  value.fltVal = static_cast<float>(std::clamp(quality, 0, 10)) / 10;
  return options.Write(1, &option, &value);
}

HRESULT WriteFrame(IWICImagingFactory& factory, ScannedImage& image, int quality, IStream& into) {
  Com<IWICBitmapEncoder> encoder;
  Com<IWICBitmapFrameEncode> frame;
  Com<IPropertyBag2> options;
  HRESULT result = factory.CreateEncoder(GUID_ContainerFormatJpeg, nullptr, encoder.Place());
  if (SUCCEEDED(result)) result = encoder->Initialize(&into, WICBitmapEncoderNoCache);
  if (SUCCEEDED(result)) result = encoder->CreateNewFrame(frame.Place(), options.Place());
  if (SUCCEEDED(result)) result = SetQuality(*options.Get(), quality);
  if (SUCCEEDED(result)) result = frame->Initialize(options.Get());
  if (SUCCEEDED(result)) result = frame->SetSize(static_cast<UINT>(image.width), static_cast<UINT>(image.height));
  if (SUCCEEDED(result)) result = frame->SetResolution(image.dpi, image.dpi);
  GUID format = FormatOf(image);
  if (SUCCEEDED(result)) result = frame->SetPixelFormat(&format);
  if (SUCCEEDED(result) && format != FormatOf(image)) result = E_NOTIMPL;
  if (SUCCEEDED(result)) {
    result = frame->WritePixels(static_cast<UINT>(image.height), static_cast<UINT>(image.stride),
                                static_cast<UINT>(image.rows.size()), image.rows.data());
  }
  if (SUCCEEDED(result)) result = frame->Commit();
  return SUCCEEDED(result) ? encoder->Commit() : result;
}

std::vector<std::uint8_t> BytesOf(IStream& stream) {
  STATSTG facts{};
  LARGE_INTEGER start{};
  if (FAILED(stream.Stat(&facts, STATFLAG_NONAME)) || FAILED(stream.Seek(start, STREAM_SEEK_SET, nullptr))) return {};
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(facts.cbSize.QuadPart));
  ULONG read = 0;
  const HRESULT result = stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), &read);
  return SUCCEEDED(result) && read == bytes.size() ? bytes : std::vector<std::uint8_t>();
}

}  // namespace

std::vector<std::uint8_t> SystemJpeg::Encode(const ScannedImage& image, int quality) {
  const ComLibrary library;
  Com<IWICImagingFactory> factory;
  Com<IStream> stream;
  if (BitsOf(image.kind) != 8 || FAILED(MakeFactory(factory)) ||
      FAILED(CreateStreamOnHGlobal(nullptr, TRUE, stream.Place())))
    return {};
  ScannedImage turned = image;
  SwapBands(turned);
  if (FAILED(WriteFrame(*factory.Get(), turned, quality, *stream.Get()))) return {};
  return BytesOf(*stream.Get());
}

bool SystemJpeg::Decode(std::span<const std::uint8_t> file, ScannedImage& into) {
  const ComLibrary library;
  Com<IWICImagingFactory> factory;
  Com<IWICStream> stream;
  Com<IWICBitmapDecoder> decoder;
  Com<IWICBitmapFrameDecode> frame;
  std::vector<std::uint8_t> bytes(file.begin(), file.end());
  HRESULT result = MakeFactory(factory);
  if (SUCCEEDED(result)) result = factory->CreateStream(stream.Place());
  if (SUCCEEDED(result)) result = stream->InitializeFromMemory(bytes.data(), static_cast<DWORD>(bytes.size()));
  if (SUCCEEDED(result)) {
    result = factory->CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand, decoder.Place());
  }
  if (SUCCEEDED(result)) result = decoder->GetFrame(0, frame.Place());
  GUID format{};
  UINT width = 0, height = 0;
  if (SUCCEEDED(result)) result = frame->GetPixelFormat(&format);
  if (SUCCEEDED(result)) result = frame->GetSize(&width, &height);
  if (FAILED(result) || format != FormatOf(into) || static_cast<int>(width) != into.width ||
      static_cast<int>(height) != into.height)
    return false;
  ScannedImage decoded = EmptyImage(into.kind, into.width, into.height, into.dpi);
  result = frame->CopyPixels(nullptr, static_cast<UINT>(decoded.stride), static_cast<UINT>(decoded.rows.size()),
                             decoded.rows.data());
  if (FAILED(result)) return false;
  SwapBands(decoded);
  into = std::move(decoded);
  return true;
}

}  // namespace data_source
