#include <gtest/gtest.h>

#include "ui/desktop/FileUri.h"

namespace vellomar {
namespace {

struct Pair {
    std::string path;
    std::string uri;
};

const Pair kPairs[] = {
    {"/", "file:///"},
    {"/home/ann/IMG_1.jpg", "file:///home/ann/IMG_1.jpg"},
    {"/a-b.c_d~e/0189AZaz", "file:///a-b.c_d~e/0189AZaz"},
    {"/with blanks/x y", "file:///with%20blanks/x%20y"},
    {"/100%", "file:///100%25"},
    {"/%41", "file:///%2541"},
    {"/a#b?c", "file:///a%23b%3Fc"},
    {"/a:b;c&d=e+f,g@h", "file:///a%3Ab%3Bc%26d%3De%2Bf%2Cg%40h"},
    {"/\"'<>[]\\|`^{}", "file:///%22%27%3C%3E%5B%5D%5C%7C%60%5E%7B%7D"},
    {"/Gr\xC3\xBC\xC3\x9F"
     "e",
     "file:///Gr%C3%BC%C3%9F"
     "e"},
    {"/caf\xE9\xFF\x80", "file:///caf%E9%FF%80"},
    {"/line\nbreak\ttab\x01\x7F", "file:///line%0Abreak%09tab%01%7F"},
};

TEST(FileUri, NamesEveryByteOfAPath) {
    for (const auto& [path, uri] : kPairs) {
        SCOPED_TRACE(uri);
        EXPECT_EQ(fileUriOf(path), uri);
        EXPECT_EQ(pathOfFileUri(uri), path);
    }
}

TEST(FileUri, ReadsWhatOthersWrite) {
    const Pair pairs[] = {
        {"/a b", "file:/a%20b"},
        {"/a b", "file://localhost/a%20b"},
        {"/a b", "FILE://LocalHost/a%20b"},
        {"/a b", "file:///a b"},
        {"/\xE9", "file:///%e9"},
        {"/\xC3\xBC", "file:///\xC3\xBC"},
        {"/a:b;c&d=e+f,g@h", "file:///a:b;c&d=e+f,g@h"},
        {"/folder/", "file:///folder/"},
        {"//twice", "file:////twice"},
    };
    for (const auto& [path, uri] : pairs) {
        SCOPED_TRACE(uri);
        EXPECT_EQ(pathOfFileUri(uri), path);
    }
}

TEST(FileUri, RefusesWhatIsNoFileHere) {
    const std::string uris[] = {
        "",
        "file",
        "file:",
        "file://",
        "file://localhost",
        "file:relative",
        "/home/ann",
        "smb://server/share",
        "https://example.org/a",
        "file://server/share/a",
        "file://localhost.example.org/a",
        "file://127.0.0.1/a",
        "file:///a?b",
        "file:///a#b",
        "file:///a%",
        "file:///a%4",
        "file:///a%4g",
        "file:///a%g4",
        "file:///a%00b",
        "file:///a%2Fb",
        "file:///a%2fb",
        std::string("file:///a\0b", 11),
    };
    for (const auto& uri : uris)
        EXPECT_EQ(pathOfFileUri(uri), std::nullopt) << uri;
}

}  // namespace
}  // namespace vellomar
