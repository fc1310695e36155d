// Checking a theme near the size cap, beside a plain base64 loop over the same bytes.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "tests/unit/themes/plain_base64.h"
#include "tests/unit/themes/sample_theme.h"
#include "themes/base64.h"
#include "themes/theme_file.h"

namespace ravelin {
namespace {

samples::Bytes withNoise(samples::Bytes bytes, std::size_t begin) {
    std::uint32_t state = 1;
    for (std::size_t i = begin; i < bytes.size(); ++i) {
        state = state * 1664525U + 1013904223U;
        bytes[i] = static_cast<std::uint8_t>(state >> 24);
    }
    return bytes;
}

// All 24 pieces at 310,000 bytes and a font of 1.7 MB: some 12 million characters.
const samples::Object& skin() {
    static const samples::Object built = [] {
        samples::Object pieces;
        for (const auto& [name, width, height] : samples::knownPieces) {
            const auto image = samples::pngOfBytes(width, height, 310'000);
            pieces.add(name, samples::jsonString(samples::base64(withNoise(image, 100))));
        }
        const auto font = withNoise(samples::fontOfBytes(1'700'000), 4);
        return samples::skinOf(pieces).add("font", samples::jsonString(samples::base64(font)));
    }();
    return built;
}

void countBytes(benchmark::State& state, const std::string& text) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void checkAll(benchmark::State& state, const std::string& theme) {
    for (auto _ : state) {
        ThemeRecord record;
        std::string error;
        if (!validateTheme(theme, record, &error)) state.SkipWithError(error.c_str());
        benchmark::DoNotOptimize(record);
    }
    countBytes(state, theme);
}

void ThemeCheck(benchmark::State& state) {
    checkAll(state, samples::withSkin(skin()));
}
BENCHMARK(ThemeCheck)->Unit(benchmark::kMillisecond);

// As written by JSON writers that put a backslash before every slash.
void ThemeCheckWithEscapes(benchmark::State& state) {
    std::string theme;
    for (const char c : samples::withSkin(skin())) {
        if (c == '/') theme += '\\';
        theme += c;
    }
    checkAll(state, theme);
}
BENCHMARK(ThemeCheckWithEscapes)->Unit(benchmark::kMillisecond);

std::string twelveMegabytes() {
    return samples::base64(withNoise(samples::Bytes(9'000'000), 0));
}

void PlainBase64Loop(benchmark::State& state) {
    const std::string text = twelveMegabytes();
    for (auto _ : state)
        benchmark::DoNotOptimize(samples::decodePlainly(text));
    countBytes(state, text);
}
BENCHMARK(PlainBase64Loop)->Unit(benchmark::kMillisecond);

void Base64Check(benchmark::State& state) {
    const std::string text = twelveMegabytes();
    for (auto _ : state)
        benchmark::DoNotOptimize(isWellFormedBase64(text));
    countBytes(state, text);
}
BENCHMARK(Base64Check)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace ravelin
