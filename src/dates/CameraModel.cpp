#include "dates/CameraModel.h"

#include "engine/model/DecisionResult.h"

namespace vellomar {

std::string readCameraModel(const ExifCameras& exifCameras, const std::string& path, const Options& options,
                            MetadataReader* reader) {
    if (const auto told = exifCameras.find(path); told != exifCameras.end()) return told->second;
    if (options.storageIsNetwork || reader == nullptr) return kUnknownCamera;
    return reader->readImageCamera(path).value_or(kUnknownCamera);
}

}  // namespace vellomar
