#include "platform/windows/win32/picture.h"

#include <wincodec.h>

#include <cstdint>
#include <vector>

#include "platform/windows/wide.h"
#include "platform/windows/win32/com.h"

namespace win32 {

namespace {

/// The bytes of a resource, valid as long as the program runs.
struct Bytes {
    BYTE* first = nullptr;
    DWORD size = 0;
};

Bytes findPng(const std::wstring& name) {
    const HRSRC found = FindResourceW(nullptr, name.c_str(), MAKEINTRESOURCEW(10));  // RT_RCDATA
    if (!found) return {};
    return {static_cast<BYTE*>(LockResource(LoadResource(nullptr, found))),
            SizeofResource(nullptr, found)};
}

/// Returns the picture's pixels as 0xAARRGGBB, top row first; empty if the bytes are no picture.
std::vector<std::uint32_t> decode(const Bytes& bytes, UINT width, UINT height) {
    const auto factory = comFrom<IWICImagingFactory>([](IWICImagingFactory** made) {
        return CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_PPV_ARGS(made));
    });
    if (!factory) return {};
    const auto stream = comFrom<IWICStream>([&](auto made) { return factory->CreateStream(made); });
    if (!stream || FAILED(stream->InitializeFromMemory(bytes.first, bytes.size))) return {};
    const auto decoder = comFrom<IWICBitmapDecoder>([&](auto made) {
        return factory->CreateDecoderFromStream(stream.get(), nullptr,
                                                WICDecodeMetadataCacheOnDemand, made);
    });
    if (!decoder) return {};
    const auto frame =
        comFrom<IWICBitmapFrameDecode>([&](auto made) { return decoder->GetFrame(0, made); });
    const auto converter = comFrom<IWICFormatConverter>(
        [&](auto made) { return factory->CreateFormatConverter(made); });
    const auto scaler =
        comFrom<IWICBitmapScaler>([&](auto made) { return factory->CreateBitmapScaler(made); });
    if (!frame || !converter || !scaler ||
        FAILED(converter->Initialize(frame.get(), GUID_WICPixelFormat32bppBGRA,
                                     WICBitmapDitherTypeNone, nullptr, 0,
                                     WICBitmapPaletteTypeCustom)) ||
        FAILED(
            scaler->Initialize(converter.get(), width, height, WICBitmapInterpolationModeFant))) {
        return {};
    }

    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) * height);
    const UINT rowSize = width * sizeof(std::uint32_t);
    const HRESULT copied = scaler->CopyPixels(nullptr, rowSize, rowSize * height,
                                              reinterpret_cast<BYTE*>(pixels.data()));
    return SUCCEEDED(copied) ? pixels : std::vector<std::uint32_t>();
}

Icon makeIcon(const std::vector<std::uint32_t>& pixels, int width, int height) {
    const Bitmap colours(CreateBitmap(width, height, 1, 32, pixels.data()));
    const std::vector<std::uint16_t> opaque(static_cast<std::size_t>(width / 16 + 1) * height);
    const Bitmap mask(CreateBitmap(width, height, 1, 1, opaque.data()));
    ICONINFO info{TRUE, 0, 0, mask.get(), colours.get()};
    return Icon(CreateIconIndirect(&info));
}

}  // namespace

Icon loadPicture(const std::string& name, int width, int height) {
    const std::wstring resource = platform::wide(name);
    const Bytes png = findPng(resource);
    if (!png.first) {
        return Icon(static_cast<HICON>(
            LoadImageW(GetModuleHandleW(nullptr), resource.c_str(), IMAGE_ICON, width, height, 0)));
    }
    const auto pixels = decode(png, width, height);
    return pixels.empty() ? Icon() : makeIcon(pixels, width, height);
}

}  // namespace win32
