#pragma once

#include <QObject>

#include "engine/EngineObserver.h"

namespace vellomar {

// What the engine tells of its published state, as signals, in the same order and on the same thread.
class EngineEvents final : public QObject, public EngineObserver {
    Q_OBJECT

public:
    using QObject::QObject;

    void fieldChanged(PublishedField field) override { emit changed(field); }
    void linesAppended(std::size_t count) override { emit linesAdded(static_cast<int>(count)); }
    void linesDropped(std::size_t count) override { emit linesRemoved(static_cast<int>(count)); }
    void rowsAppended(std::size_t count) override { emit rowsAdded(static_cast<int>(count)); }

signals:
    void changed(PublishedField field);
    void linesAdded(int count);    // the last so many are new
    void linesRemoved(int count);  // so many of the oldest are gone
    void rowsAdded(int count);     // the last so many are new
};

}  // namespace vellomar
