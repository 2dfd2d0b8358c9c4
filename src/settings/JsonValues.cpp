#include "settings/JsonValues.h"

#include <QByteArray>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vellomar {
namespace {

constexpr const char* kBase64Member = "base64";

QByteArray viewOf(std::string_view bytes) {
    return QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

}  // namespace

std::optional<bool> booleanFrom(const Json& value) {
    if (!value.is_boolean()) return std::nullopt;
    return value.get<bool>();
}

std::optional<int> integerFrom(const Json& value) {
    if (!value.is_number()) return std::nullopt;
    const auto number = value.get<double>();
    const bool isWhole = std::trunc(number) == number;
    if (!isWhole || number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(number);
}

std::optional<std::string> textFrom(const Json& value) {
    if (!value.is_string()) return std::nullopt;
    return value.get<std::string>();
}

std::optional<std::string> bytesFrom(const Json& value) {
    const auto* member = memberOf(value, kBase64Member);
    if (member == nullptr || !member->is_string()) return std::nullopt;
    return bytesFromBase64(member->get<std::string>());
}

Json jsonOfBytes(std::string_view bytes) {
    return Json{{kBase64Member, base64Of(bytes)}};
}

std::optional<std::string> bytesFromBase64(std::string_view text) {
    const auto options = QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors;
    const auto decoded = QByteArray::fromBase64Encoding(viewOf(text), options);
    // The decoder does not insist on padding.
    if (!decoded || base64Of(decoded.decoded.toStdString()) != text) return std::nullopt;
    return decoded.decoded.toStdString();
}

std::string base64Of(std::string_view bytes) {
    return viewOf(bytes).toBase64().toStdString();
}

const Json* memberOf(const Json& object, const char* name) {
    if (!object.is_object()) return nullptr;
    const auto member = object.find(name);
    return member == object.end() ? nullptr : &*member;
}

std::optional<std::string> textMember(const Json& object, const char* name) {
    const auto* member = memberOf(object, name);
    return member == nullptr ? std::nullopt : textFrom(*member);
}

std::optional<Uuid> uuidMember(const Json& object, const char* name) {
    const auto text = textMember(object, name);
    return text ? Uuid::fromText(*text) : std::nullopt;
}

}  // namespace vellomar
