#pragma once

#include "buehne.h"
#include "zustand.h"

#include <QObject>

using namespace quillmar::zustand;

/** A test of the state object on a stage: it begins with no profile stored and no model server. */
class Zustandsprobe : public QObject
{
    Q_OBJECT

protected:
    /** The state object with the stage's profile open. */
    void beginnen();
    /** File name of the document under review; empty if there is none. */
    [[nodiscard]] QString name() const;

    std::unique_ptr<Buehne> m_b;
    std::unique_ptr<Zustand> m_z;

protected Q_SLOTS:
    void init();
    void cleanup();
};
