#pragma once

namespace vellomar {

// Makes the libraries ready that decode and encode pixels; once for the process, before their first use and before any
// thread starts. They look for their plugins now, since later nothing can be opened.
void preparePixelLibraries();

}  // namespace vellomar
