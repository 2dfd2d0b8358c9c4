// Digests files one by one and removes each.
//
//   floor_undo LIST     a file of absolute paths, one a line
#include <cstdio>

#include <unistd.h>

#include "floors/BareDigest.h"
#include "floors/KernelCall.h"
#include "measure/Measurement.h"
#include "measure/PathList.h"

int main(int argc, char** argv) {
    using namespace vellomar::bench;
    if (argc != 2) {
        std::fputs("Usage: floor_undo LIST\n", stderr);
        return 2;
    }
    const auto paths = pathsIn(argv[1]);
    printMeasurementOf([&] {
        BareDigest hasher;
        Amount done;
        for (const auto& path : paths) {
            done.bytes += hasher.digest(path.c_str());
            orGiveUp(::unlink(path.c_str()), path.c_str());
            ++done.files;
        }
        return done;
    });
}
