#pragma once

#include <QByteArray>

/** What a fuzz target does with one input; it must neither crash nor break what it asserts. */
void pruefen(const QByteArray &eingabe);

/** Aborts when @p gilt is false: a rule that must hold for every input. */
void verlangen(bool gilt);
