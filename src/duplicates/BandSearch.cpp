#include "duplicates/BandSearch.h"

#include <algorithm>
#include <bit>
#include <tuple>
#include <utility>

#include "duplicates/HammingKernels.h"

namespace vellomar {
namespace {

auto orderOf(const HammingPair& pair) {
    return std::tuple(pair.first, pair.second);
}

// Of the pairs that are added, in any order, those whose first value stands before end(). The end moves to the front
// whenever the room is used up.
class PairWindow {
public:
    PairWindow(std::size_t end, std::size_t room) : end_(end), room_(room) {}

    [[nodiscard]] std::size_t end() const { return end_; }

    void add(const HammingPair& pair) {
        if (pair.first >= end_) return;
        pairs_.push_back(pair);
        if (pairs_.size() >= 2 * room_) shrink();
    }

    void handOut(const HammingPairSink& sink) {
        std::ranges::sort(pairs_, {}, &orderOf);
        for (const auto& pair : pairs_)
            sink(pair);
    }

private:
    // Never to nothing, as no value has more pairs than there is room for.
    void shrink() {
        const auto firstTooMany = pairs_.begin() + static_cast<std::ptrdiff_t>(room_);
        std::ranges::nth_element(pairs_, firstTooMany, {}, &orderOf);
        end_ = firstTooMany->first;
        std::erase_if(pairs_, [this](const auto& pair) { return pair.first >= end_; });
    }

    std::size_t end_;
    std::size_t room_;
    std::vector<HammingPair> pairs_;
};

// The values in the order of one of their bands, those with the same band in a row.
class BandIndex {
public:
    BandIndex(std::span<const std::uint64_t> values, const Band& band)
        : starts_((std::size_t{1} << band.width) + 1), values_(values.size()), positions_(values.size()) {
        for (const auto value : values)
            ++starts_[band.of(value) + 1];
        for (std::size_t place = 1; place < starts_.size(); ++place)
            starts_[place] += starts_[place - 1];
        auto next = starts_;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const auto slot = next[band.of(values[i])]++;
            values_[slot] = values[i];
            positions_[slot] = static_cast<std::uint32_t>(i);
        }
    }

    struct Row {
        std::span<const std::uint64_t> values;
        std::span<const std::uint32_t> positions;  // of the values in the list

        [[nodiscard]] std::size_t size() const { return values.size(); }
        [[nodiscard]] Row behind(std::size_t i) const { return {values.subspan(i + 1), positions.subspan(i + 1)}; }
    };

    [[nodiscard]] std::uint32_t places() const { return static_cast<std::uint32_t>(starts_.size() - 1); }

    [[nodiscard]] Row row(std::uint32_t place) const {
        const auto start = starts_[place];
        const auto size = starts_[place + 1] - start;
        return {std::span(values_).subspan(start, size), std::span(positions_).subspan(start, size)};
    }

private:
    std::vector<std::uint32_t> starts_;  // by place, and the end behind the last
    std::vector<std::uint64_t> values_;
    std::vector<std::uint32_t> positions_;
};

class BandSearch {
public:
    BandSearch(std::span<const std::uint64_t> values, int threshold, const std::vector<Band>& bands)
        : values_(values), threshold_(threshold), bands_(bands), found_(values.size()) {}

    void fill(PairWindow& window) {
        for (band_ = 0; band_ < bands_.size(); ++band_)
            searchBand(window);
    }

private:
    // Every two places meet once.
    void searchBand(PairWindow& window) {
        const auto& band = bands_[band_];
        const BandIndex index(values_, band);
        const auto differences = numbersWithFewBits(band.width, band.radius);
        for (std::uint32_t place = 0; place < index.places(); ++place) {
            const auto row = index.row(place);
            if (row.size() == 0) continue;
            for (std::size_t i = 0; i < row.size(); ++i)
                compare(row, i, row.behind(i), window);
            for (const auto difference : std::span(differences).subspan(1)) {
                const auto other = place ^ difference;
                if (other > place) compareRows(row, index.row(other), window);
            }
        }
    }

    void compareRows(const BandIndex::Row& one, const BandIndex::Row& other, PairWindow& window) {
        const auto& [shorter, longer] = one.size() < other.size() ? std::tie(one, other) : std::tie(other, one);
        for (std::size_t i = 0; i < shorter.size(); ++i)
            compare(shorter, i, longer, window);
    }

    void compare(const BandIndex::Row& row, std::size_t i, const BandIndex::Row& others, PairWindow& window) {
        const auto count = kernel_(row.values[i], others.values, threshold_, found_.data());
        for (const auto position : std::span(found_).first(count)) {
            const auto difference = row.values[i] ^ others.values[position];
            if (wasFoundBefore(difference)) continue;
            const auto [first, second] = std::minmax(row.positions[i], others.positions[position]);
            window.add({first, second, std::popcount(difference)});
        }
    }

    // Through an earlier band.
    [[nodiscard]] bool wasFoundBefore(std::uint64_t difference) const {
        return std::ranges::any_of(std::span(bands_).first(band_), [difference](const auto& band) {
            return std::popcount(band.of(difference)) <= band.radius;
        });
    }

    std::span<const std::uint64_t> values_;
    int threshold_;
    const std::vector<Band>& bands_;
    std::size_t band_ = 0;  // the one that is being searched
    std::vector<std::uint32_t> found_;
    HammingKernel kernel_ = fastestHammingKernel();
};

}  // namespace

std::size_t searchBands(std::span<const std::uint64_t> values, int threshold, const std::vector<Band>& bands,
                        std::size_t room, const HammingPairSink& sink) {
    PairWindow window(values.size(), room);
    BandSearch(values, threshold, bands).fill(window);
    window.handOut(sink);
    return window.end();
}

}  // namespace vellomar
