// The operations of the engine driver, by their names.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "driver/Surroundings.h"
#include "platform/BytesJson.h"

namespace vellomar::driver {

// Takes a request's arguments and returns its result. A bad argument is thrown as std::exception with the text for the
// answer.
using Op = std::function<Json(const Json& arguments)>;
using Ops = std::map<std::string, Op, std::less<>>;

void addFileOps(Ops& ops);    // on single files and texts
void addNamingOps(Ops& ops);  // dates, decisions and destinations
void addLookOps(Ops& ops);    // looks before a run: integrity check and estimate
void addShiftOps(Ops& ops);   // the texts of a shift of dates

// What files, sidecars and ExifTool tell; whole runs and their manifests. The surroundings must outlive the operations.
void addMetadataOps(Ops& ops, Surroundings& surroundings);
void addEngineOps(Ops& ops, Surroundings& surroundings);

// The tools beside a run.
void addWatchOps(Ops& ops, Surroundings& surroundings);

}  // namespace vellomar::driver
