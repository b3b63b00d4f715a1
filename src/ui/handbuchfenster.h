#pragma once

#include "namensraeume.h"

#include <QWidget>

class QTextBrowser;
class QUrl;

namespace quillmar::ui
{
/** The handbook in a window of its own, with its pictures. */
class Handbuchfenster : public QWidget
{
    Q_OBJECT

public:
    explicit Handbuchfenster(QWidget *eltern = nullptr);

    /** Shows it at @p kapitel (a heading as links write it: "wenn-etwas-nicht-geht"), or at its beginning. */
    void zeigen(const QString &kapitel = {});

private:
    void verweisFolgen(const QUrl &ziel);

    QTextBrowser *m_text;
};
} // namespace quillmar::ui
