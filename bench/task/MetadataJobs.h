#pragma once

#include <string>

namespace vellomar::bench {

// Jobs over the photos that the file `list` names, one a line; see Jobs.h.
void askExifTool(const std::string& list);
void readByDecoder(const std::string& list);
void askDecoder(const std::string& list);
void askHere(const std::string& list);
void hashPictures(const std::string& list);

}  // namespace vellomar::bench
