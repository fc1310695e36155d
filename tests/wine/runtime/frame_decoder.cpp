#include "frame_decoder.h"

#include <initguid.h>
// The order matters: initguid.h makes the next header define its ids.
#include <wincodec.h>
#include <wincrypt.h>
#include <wrl/client.h>

#include "log.h"

namespace ravelin::browser {
namespace {

using Microsoft::WRL::ComPtr;

std::vector<std::uint8_t> decodeBase64(std::string_view text) {
    DWORD size = 0;
    const auto length = static_cast<DWORD>(text.size());
    if (CryptStringToBinaryA(text.data(), length, CRYPT_STRING_BASE64, nullptr, &size, nullptr,
                             nullptr) == 0) {
        return {};
    }
    std::vector<std::uint8_t> bytes(size);
    CryptStringToBinaryA(text.data(), length, CRYPT_STRING_BASE64, bytes.data(), &size, nullptr,
                         nullptr);
    return bytes;
}

// Kept for good and in no thread's storage: a thread that is tidying up its storage when the
// process ends is stopped with the C++ runtime's locks held, and the process then waits for them
// for ever.
IWICImagingFactory* imagingFactory() {
    static IWICImagingFactory* const factory = [] {
        CO_MTA_USAGE_COOKIE cookie = nullptr;
        CoIncrementMTAUsage(&cookie);
        ComPtr<IWICImagingFactory> made;
        const HRESULT result =
            CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                             IID_IWICImagingFactory, reinterpret_cast<void**>(made.GetAddressOf()));
        if (FAILED(result)) logLine("no imaging component to decode frames with");
        return made.Detach();
    }();
    return factory;
}

ComPtr<IWICBitmapSource> openPicture(IWICImagingFactory* factory, std::vector<std::uint8_t>& png) {
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> picture;
    ComPtr<IWICFormatConverter> converter;
    ComPtr<IWICBitmapSource> source;
    if (SUCCEEDED(factory->CreateStream(&stream)) &&
        SUCCEEDED(stream->InitializeFromMemory(png.data(), static_cast<DWORD>(png.size()))) &&
        SUCCEEDED(factory->CreateDecoderFromStream(stream.Get(), nullptr,
                                                   WICDecodeMetadataCacheOnDemand, &decoder)) &&
        SUCCEEDED(decoder->GetFrame(0, &picture)) &&
        SUCCEEDED(factory->CreateFormatConverter(&converter)) &&
        SUCCEEDED(converter->Initialize(picture.Get(), GUID_WICPixelFormat32bppBGR,
                                        WICBitmapDitherTypeNone, nullptr, 0,
                                        WICBitmapPaletteTypeCustom))) {
        source = converter.Get();
    }
    return source;
}

}  // namespace

Frame decodeFrame(std::string_view base64) {
    IWICImagingFactory* const factory = imagingFactory();
    if (factory == nullptr) return {};
    std::vector<std::uint8_t> png = decodeBase64(base64);
    const ComPtr<IWICBitmapSource> picture = openPicture(factory, png);
    UINT width = 0;
    UINT height = 0;
    if (!picture || FAILED(picture->GetSize(&width, &height))) return {};
    Frame frame{static_cast<int>(width), static_cast<int>(height), {}};
    frame.pixels.resize(std::size_t{4} * width * height);
    if (FAILED(picture->CopyPixels(nullptr, width * 4, static_cast<UINT>(frame.pixels.size()),
                                   frame.pixels.data()))) {
        return {};
    }
    return frame;
}

}  // namespace ravelin::browser
