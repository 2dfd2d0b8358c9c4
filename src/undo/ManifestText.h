#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "undo/UndoManifest.h"

namespace vellomar {

// The manifest as a JSON text: keys in alphabetical order, each on a line of its own, two blanks a level; times in UTC
// with whole seconds. Bytes of a path that are not UTF-8 are kept as BytesJson tells.
//
//   {
//     "destRoot": "/photos/library",
//     "entries": [
//       {
//         "destination": "/photos/library/2024/06 - June/2024-06-14_114107_IMG_1.jpg",
//         "op": "copy",
//         "sha256": "9f86d081884c7d659a2feaa0c55ad015a3bf4f1b2b0b822cd15d6c15b0f00a08",
//         "source": "/cards/IMG_1.JPG",
//         "timestamp": "2024-06-14T09:41:07Z"
//       }
//     ],
//     "runID": "2024-06-14T11:40:58",
//     "sourceRoot": "/cards"
//   }
//
// "sha256" is left out where there is none.
[[nodiscard]] std::string manifestText(const UndoManifest& manifest);

// Reads such a text back. Nothing for a text that is cut off, lacks a key, has a value of the wrong type, names an
// operation other than "copy" and "move", or a time with a fraction. Other keys are ignored.
[[nodiscard]] std::optional<UndoManifest> manifestFromText(std::string_view text);

}  // namespace vellomar
