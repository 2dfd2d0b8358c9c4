// SHA-256 of one file.
//
//   floor_hash FILE
#include <cstdio>

#include "floors/BareDigest.h"
#include "measure/Measurement.h"

int main(int argc, char** argv) {
    using namespace vellomar::bench;
    if (argc != 2) {
        std::fputs("Usage: floor_hash FILE\n", stderr);
        return 2;
    }
    BareDigest hasher;
    printMeasurementOf([&] { return Amount{1, hasher.digest(argv[1])}; });
}
