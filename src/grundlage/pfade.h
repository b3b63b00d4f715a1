#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QHashFunctions>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

struct stat;

namespace quillmar::grundlage
{
/**
 * Paths are kept in NFC, but a Linux file system takes NFC and NFD names apart. Everything that opens, reads, tests or
 * moves a file asks aufDerPlatte() for the name that the entry really has.
 */

/** The bytes of the existing entry whose NFC form is @p pfad (absolute); empty if there is none. */
[[nodiscard]] QByteArray aufDerPlatte(const QString &pfad);
/** The same with what lstat() says of the entry; @p angaben counts only when there is one. */
[[nodiscard]] QByteArray aufDerPlatte(const QString &pfad, struct stat &angaben);

/** An entry (of whatever kind, a dead link too) exists at @p pfad in NFC or NFD spelling. */
[[nodiscard]] bool istVorhanden(const QString &pfad);

/** A folder (or a link to one) that can be entered exists at @p pfad. */
[[nodiscard]] bool istOrdner(const QString &pfad);

/** @p pfad lies somewhere below the folder @p ordner, by their texts in form C. False for an empty @p ordner. */
[[nodiscard]] bool liegtUnter(const QString &pfad, const QString &ordner);

/** What a folder or file is, whatever way leads there: device and inode. */
struct Kennung {
    quint64 geraet = 0;
    quint64 nummer = 0;
    bool operator==(const Kennung &) const = default;
    friend size_t qHash(const Kennung &k, size_t seed = 0) noexcept { return qHashMulti(seed, k.geraet, k.nummer); }
};
/** Of the existing entry at @p pfad, links followed; none if there is nothing. */
[[nodiscard]] std::optional<Kennung> kennungVon(const QString &pfad);

/** The wanted @p pfad as bytes, each existing leading component in the spelling that it has on disk. */
[[nodiscard]] QByteArray plattenPfad(const QString &pfad);

/** Kind of a folder entry. A link is a link, wherever it leads. */
enum class Eintragsart { Datei, Ordner, Verweis, Anderes };

/** One entry of a folder: the bytes of its name as they lie on disk and what it is. */
struct Ordnereintrag {
    QByteArray name;
    Eintragsart art = Eintragsart::Anderes;
};

/**
 * Calls @p besuch for every entry of the folder @p ordner (bytes), "." and ".." apart, in the order of the disk.
 * The first argument is a descriptor of the open folder for calls such as fstatat(). False if it cannot be read.
 */
bool ordnerLesen(const QByteArray &ordner, const std::function<void(int griff, const Ordnereintrag &)> &besuch);

/** NFC form of a name on disk; a null text when its bytes are not valid UTF-8. */
[[nodiscard]] QString nameVonPlatte(const QByteArray &name);

/** NFC names of the subfolders of @p ordner, ascending, each once; hidden ones and links left out. Empty if unreadable.
 */
[[nodiscard]] QStringList unterordner(const QString &ordner);

/** Folder part of an absolute path ("/" for an entry of the root), and its last component. */
[[nodiscard]] QString ordnerVon(const QString &pfad);
[[nodiscard]] QString nameVon(const QString &pfad);

/** The nearest folder on the way up from @p pfad that is there; the home folder for an empty one. */
[[nodiscard]] QString vorhandenerOrdner(const QString &pfad);

/** A path for the user's eye: the home folder as "~". */
[[nodiscard]] QString kurzpfad(const QString &pfad);
/** The way back: "~" in front, as in every shell, is the home folder. */
[[nodiscard]] QString langpfad(const QString &pfad);
} // namespace quillmar::grundlage
