# Reads the sources named on the command line, whose paths start at src/, and prints every include that breaks the
# order of the layers. See scripts/lint-layers, which runs it.

function complain(text) {
    print text
    failures++
}

# From the top to the bottom; layers of one height know nothing of each other.
function nameLayers() {
    height["app"] = 9
    height["ui"] = 8
    height["settings"] = 7
    height["tools"] = 6
    height["engine"] = 5
    height["dates"] = height["naming"] = height["duplicates"] = height["undo"] = 4
    height["engine/model"] = height["places"] = 3
    height["platform"] = 2
    mayKnowItsSibling["dates", "naming"] = 1
}

function folderOf(file) {
    return match(file, /\/[^\/]*$/) ? substr(file, 1, RSTART - 1) : ""
}

# The longest part of the file's folder that is a layer, or "" when the file lies in none.
function layerOf(file,    folder) {
    for (folder = folderOf(file); folder != ""; folder = folderOf(folder))
        if (folder in height) return folder
    return ""
}

# A header and its source are one unit: what either includes, the unit depends on.
function unitOf(file) {
    sub(/\.(h|cpp)$/, "", file)
    return file
}

# What looks into files runs in a process of its own: nobody else may call it.
function isDecodersOwn(file) {
    return file ~ /^platform\/decoder\/worker\//
}

function mayInclude(from, to) {
    return from == to || height[to] < height[from] || ((from, to) in mayKnowItsSibling)
}

function checkInclude(place, file, included,    from, to) {
    from = layerOf(file)
    to = layerOf(included)
    if (!(included in exists)) complain(place ": there is no src/" included)
    else if (!mayInclude(from, to)) complain(place ": " from " must not know " to)
    else if (isDecodersOwn(included) && !isDecodersOwn(file)) complain(place ": only the decoder's process looks into files")
    if (unitOf(file) != unitOf(included)) edges[unitOf(file)] = edges[unitOf(file)] " " unitOf(included)
}

function checkFirstInclude(place, file, included,    own) {
    if (file !~ /\.cpp$/ || file ~ /(^|\/)main\.cpp$/) return
    own = unitOf(file) ".h"
    if (included != own) complain(place ": the first include is not the file's own header, " own)
}

# Walks the units below `unit`, and prints the way round when it comes back to one that it is still in.
function walk(unit, way,    next_, count, i) {
    state[unit] = "open"
    count = split(edges[unit], next_, " ")
    for (i = 1; i <= count; i++) {
        if (state[next_[i]] == "open") complain("cycle: " way " -> " next_[i])
        else if (state[next_[i]] == "") walk(next_[i], way " -> " next_[i])
    }
    state[unit] = "done"
}

BEGIN {
    nameLayers()
    for (i = 1; i < ARGC; i++) {
        file = ARGV[i]
        sub(/^src\//, "", file)
        exists[file] = 1
        if (layerOf(file) == "") complain(ARGV[i] ": lies in no layer")
        if (file ~ /\.cpp$/ && file !~ /(^|\/)main\.cpp$/) needsOwnHeader[file] = 1
    }
}

FNR == 1 {
    file = FILENAME
    sub(/^src\//, "", file)
    includes = 0
}

/^[ \t]*#[ \t]*include[ \t]*["<]/ {
    includes++
    place = FILENAME ":" FNR
    quoted = $0 ~ /include[ \t]*"/
    included = $0
    sub(/^[^"<]*["<]/, "", included)
    sub(/[">].*$/, "", included)
    delete needsOwnHeader[file]
    if (includes == 1) checkFirstInclude(place, file, quoted ? included : "")
    if (quoted) checkInclude(place, file, included)
}

END {
    for (file in needsOwnHeader) complain("src/" file ": does not include its own header")
    for (unit in edges) if (state[unit] == "") walk(unit, unit)
    exit failures > 0
}
