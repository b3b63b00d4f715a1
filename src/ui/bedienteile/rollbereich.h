#pragma once

class QScrollArea;
class QWidget;

/** @p inhalt, which scrolls up and down where it is too high: without a frame or a ground of its own. */
[[nodiscard]] QScrollArea *rollbereich(QWidget *inhalt, QWidget *eltern);
