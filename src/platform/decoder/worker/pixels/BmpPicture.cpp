#include "platform/decoder/worker/pixels/BmpPicture.h"

#include <array>
#include <cstring>
#include <limits>
#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/imgutils.h>
#include <libswscale/swscale.h>
}

#include "platform/decoder/worker/pixels/AreaAverage.h"
#include "platform/decoder/worker/pixels/GreyRow.h"

namespace vellomar {
namespace {

struct FreeCodec {
    void operator()(AVCodecContext* codec) const { avcodec_free_context(&codec); }
};
struct FreePacket {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct FreeFrame {
    void operator()(AVFrame* frame) const { av_frame_free(&frame); }
};
struct FreeScaler {
    void operator()(SwsContext* scaler) const { sws_freeContext(scaler); }
};
using Codec = std::unique_ptr<AVCodecContext, FreeCodec>;
using Packet = std::unique_ptr<AVPacket, FreePacket>;
using Frame = std::unique_ptr<AVFrame, FreeFrame>;
using Scaler = std::unique_ptr<SwsContext, FreeScaler>;

// The whole file in one packet, which owns its bytes: the library reads a little beyond the end of them.
Packet packetWith(std::span<const std::byte> file) {
    if (file.size() > std::numeric_limits<int>::max() - AV_INPUT_BUFFER_PADDING_SIZE) return nullptr;
    Packet packet(av_packet_alloc());
    if (!packet || av_new_packet(packet.get(), static_cast<int>(file.size())) != 0) return nullptr;
    std::memcpy(packet->data, file.data(), file.size());
    return packet;
}

Frame decode(std::span<const std::byte> file) {
    const auto* decoder = avcodec_find_decoder(AV_CODEC_ID_BMP);
    const Codec codec(avcodec_alloc_context3(decoder));
    if (!codec) return nullptr;
    codec->max_pixels = static_cast<std::int64_t>(kMostPixels);
    codec->thread_count = 1;
    const auto packet = packetWith(file);
    Frame frame(av_frame_alloc());
    const bool isDecoded = packet && frame && avcodec_open2(codec.get(), decoder, nullptr) == 0 &&
                           avcodec_send_packet(codec.get(), packet.get()) == 0 &&
                           avcodec_receive_frame(codec.get(), frame.get()) == 0;
    return isDecoded ? std::move(frame) : nullptr;
}

// Of all the ways in which a BMP can hold its samples, the library makes this one. No size changes.
Scaler converterToColours(const AVFrame& frame) {
    return Scaler(sws_getContext(frame.width, frame.height, static_cast<AVPixelFormat>(frame.format), frame.width,
                                 frame.height, AV_PIX_FMT_RGB24, SWS_POINT | SWS_ACCURATE_RND | SWS_BITEXACT, nullptr,
                                 nullptr, nullptr));
}

}  // namespace

std::optional<RgbPicture> decodeBmp(std::span<const std::byte> file) {
    const auto frame = decode(file);
    if (!frame || !isDecodableSize(static_cast<std::uint64_t>(frame->width), static_cast<std::uint64_t>(frame->height)))
        return std::nullopt;
    const auto converter = converterToColours(*frame);
    if (!converter) return std::nullopt;
    const auto rowLength = static_cast<std::size_t>(frame->width) * samplesOf(PixelLayout::rgb);
    RgbPicture picture{frame->width, frame->height, {}};
    const auto length = rowLength * static_cast<std::size_t>(frame->height);
    picture.samples.resize(length + AV_INPUT_BUFFER_PADDING_SIZE);
    const std::array<std::uint8_t*, 4> planes{picture.samples.data()};
    const std::array<int, 4> strides{static_cast<int>(rowLength)};
    if (sws_scale(converter.get(), &frame->data[0], &frame->linesize[0], 0, frame->height, planes.data(),
                  strides.data()) != frame->height)
        return std::nullopt;
    picture.samples.resize(length);
    return picture;
}

}  // namespace vellomar
