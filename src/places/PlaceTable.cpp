#include "places/PlaceTable.h"

#include <algorithm>
#include <cstddef>
#include <limits>

#include "platform/Decompression.h"

namespace vellomar {
namespace {

constexpr std::string_view kVersion = "places1\n";
constexpr std::size_t kMaxTableBytes = std::size_t{16} << 20;  // a broken length must not cost more memory than that
constexpr std::size_t kMaxOwners = std::numeric_limits<std::uint16_t>::max();
constexpr std::int64_t kMostLatitude = 90 * PlaceTable::kStepsOfDegree;
constexpr std::int64_t kMostLongitude = 180 * PlaceTable::kStepsOfDegree;

std::optional<std::string> unpacked(std::string_view bytes) {
    constexpr std::size_t kLengthBytes = 4;
    constexpr unsigned kBitsOfByte = 8;
    if (bytes.size() < kLengthBytes) return std::nullopt;
    std::size_t length = 0;
    for (std::size_t i = kLengthBytes; i-- > 0;)
        length = length << kBitsOfByte | static_cast<unsigned char>(bytes[i]);
    if (length > kMaxTableBytes) return std::nullopt;
    return decompressed(bytes.substr(kLengthBytes), length);
}

// Takes the table's parts one by one. What is not there or not allowed reads as 0 or empty, and is remembered.
class TableReader {
public:
    explicit TableReader(std::string_view content) : rest_(content) {}

    void require(bool isTrue) { isBroken_ = isBroken_ || !isTrue; }

    void skip(std::string_view expected) {
        require(rest_.starts_with(expected));
        if (!isBroken_) rest_.remove_prefix(expected.size());
    }

    std::uint64_t number() {
        constexpr unsigned kBits = 7;
        constexpr unsigned kMaxBits = 35;
        constexpr unsigned kMore = 1U << kBits;
        std::uint64_t value = 0;
        for (unsigned shift = 0; shift < kMaxBits && !rest_.empty(); shift += kBits) {
            const unsigned byte = static_cast<unsigned char>(rest_.front());
            rest_.remove_prefix(1);
            value |= std::uint64_t{byte % kMore} << shift;
            if (byte < kMore) return value;
        }
        require(false);
        return 0;
    }

    std::size_t count(std::size_t atMost) {
        const auto value = number();
        require(value <= atMost);
        return isBroken_ ? 0 : value;
    }

    // Of things that take at least a byte each in what is still to be read.
    std::size_t countOfWhatFollows(std::size_t atMost) { return count(std::min(atMost, rest_.size())); }

    std::int64_t change() {
        const auto value = number();
        const auto half = static_cast<std::int64_t>(value / 2);
        return value % 2 == 0 ? half : -half - 1;
    }

    std::string_view name() {
        const auto end = rest_.find('\n');
        require(end != std::string_view::npos);
        if (isBroken_) return {};
        const auto name = rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        return name;
    }

    [[nodiscard]] std::string_view rest() const { return rest_; }
    [[nodiscard]] bool isBroken() const { return isBroken_; }

private:
    std::string_view rest_;
    bool isBroken_ = false;
};

// How many of `items` belong to each owner in turn.
template <typename Item>
void readOwners(TableReader& reader, std::size_t owners, std::vector<Item>& items, std::uint16_t Item::*owner) {
    std::size_t next = 0;
    for (std::size_t i = 0; i < owners; ++i)
        for (auto left = reader.count(items.size() - next); left > 0; --left)
            items[next++].*owner = static_cast<std::uint16_t>(i);
    reader.require(next == items.size());
}

void readColumn(TableReader& reader, std::vector<PlaceTable::Spot>& spots, std::int32_t PlaceTable::Spot::*coordinate,
                std::int64_t limit) {
    std::int64_t value = 0;
    for (auto& spot : spots) {
        value += reader.change();
        reader.require(value >= -limit && value <= limit);
        if (reader.isBroken()) return;
        spot.*coordinate = static_cast<std::int32_t>(value);
    }
}

// They are the last of the table, and kept as they stand there.
void readNames(TableReader& reader, PlaceTable& table) {
    table.names = reader.rest();
    for (auto& spot : table.spots) {
        spot.name = static_cast<std::uint32_t>(table.names.size() - reader.rest().size());
        reader.name();
    }
    reader.require(reader.rest().empty());
}

PlaceTable readTable(TableReader& reader) {
    PlaceTable table;
    reader.skip(kVersion);
    table.countries.resize(reader.countOfWhatFollows(kMaxOwners));
    table.regions.resize(reader.countOfWhatFollows(kMaxOwners));
    table.spots.resize(reader.countOfWhatFollows(kMaxTableBytes));
    readOwners(reader, table.countries.size(), table.regions, &PlaceTable::Region::country);
    readOwners(reader, table.regions.size(), table.spots, &PlaceTable::Spot::region);
    readColumn(reader, table.spots, &PlaceTable::Spot::latitude, kMostLatitude);
    readColumn(reader, table.spots, &PlaceTable::Spot::longitude, kMostLongitude);
    for (auto& country : table.countries)
        country = reader.name();
    for (auto& region : table.regions)
        region.name = reader.name();
    readNames(reader, table);
    return table;
}

}  // namespace

std::optional<PlaceTable> decodePlaceTable(std::string_view bytes) {
    const auto content = unpacked(bytes);
    if (!content) return std::nullopt;
    TableReader reader(*content);
    auto table = readTable(reader);
    if (reader.isBroken()) return std::nullopt;
    return table;
}

}  // namespace vellomar
