// Without Qt, one of whose macros is the name of a member in here.
#include "ui/desktop/SchemeProgram.h"

#include <memory>

#include <gio/gio.h>

namespace vellomar {

bool hasProgramForScheme(const std::string& scheme) {
    struct Unref {
        void operator()(GAppInfo* program) const { g_object_unref(program); }
    };
    const std::unique_ptr<GAppInfo, Unref> program(g_app_info_get_default_for_uri_scheme(scheme.c_str()));
    return program != nullptr;
}

}  // namespace vellomar
