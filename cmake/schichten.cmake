# Refuses every #include of the sources that the tables below do not allow.
#
#   cmake -DQUELLEN=<src> -DQT=<folder with QtCore/, QtGui/ …> -P cmake/schichten.cmake
#
# Part of every build (quillmar_schichten in quillmar.cmake); one line per offence, exit status 1. Only what a file
# includes itself is looked at.
cmake_minimum_required(VERSION 3.25)

# Who may include what of ours: a folder, or a single header of it. A folder's own headers are always allowed, those
# under innen/ to nobody else, the names of the namespaces to all. A file with a row of its own has only that.
set(zeilen
    "grundlage:"
    "sprache: grundlage"
    "profil: grundlage"
    "katalog: grundlage sprache profil/ort.h"
    "regeln: grundlage profil"
    "fundstellen: grundlage regeln/rechtsform.h"
    "lernen: grundlage profil katalog regeln"
    "ablage: grundlage sprache profil katalog regeln lernen"
    "analyse: grundlage sprache profil katalog regeln lernen ablage"
    "zustand: grundlage sprache profil katalog fundstellen lernen ablage analyse"
    "desktop: grundlage sprache zustand/durchgang.h"
    "seiten: grundlage"
    "seitenmaler: grundlage/dateigriff.h seiten/seitenprotokoll.h"
    "aufrichter:"
    "gestalt: grundlage"
    "ui/bedienteile: grundlage/pfade.h grundlage/text.h sprache zustand gestalt"
    "ui/vorschau: grundlage/seitenwort.h grundlage/text.h sprache seiten gestalt ui/bedienteile"
    "ui/einrichtung: grundlage/pfade.h grundlage/text.h sprache profil/profil.h ablage/baustein.h zustand gestalt desktop/dateiverwaltung.h ui/bedienteile"
    "ui/ablauf: grundlage/pfade.h grundlage/text.h sprache analyse/analyse.h zustand gestalt ui/bedienteile"
    "ui/pruefung: grundlage/pfade.h grundlage/text.h sprache zustand gestalt ui/bedienteile ui/vorschau/marke.h ui/vorschau/vorschau.h"
    "ui/protokoll: grundlage/anfrage.h grundlage/pfade.h grundlage/text.h sprache ablage/bilanz.h ablage/protokollzeile.h zustand gestalt desktop/dateiverwaltung.h ui/bedienteile"
    "ui: grundlage/hintergrund.h grundlage/pfade.h grundlage/programmordner.h grundlage/text.h sprache analyse/analyse.h zustand gestalt desktop ui/bedienteile ui/einrichtung/einrichtungsansicht.h ui/ablauf/ablaufansicht.h ui/pruefung/pruefansicht.h ui/protokoll/protokollansicht.h"
    "app: grundlage sprache profil katalog lernen ablage analyse"
    "app/fenster.cpp: sprache zustand/diagnose.h ui/quillmarapp.h")

# Whose affair a library is: the folders that may include its headers. Modules of Qt that are not named are nobody's.
set(fremde
    "sqlite3.h: katalog"
    "curl/: analyse"
    "openssl/: grundlage"
    "QtGui/: desktop gestalt seiten seitenmaler ui/bedienteile ui/vorschau ui/einrichtung ui/ablauf ui/pruefung ui/protokoll ui"
    "QtWidgets/: ui/bedienteile ui/vorschau ui/einrichtung ui/ablauf ui/pruefung ui/protokoll ui"
    "QtPdf/: seitenmaler"
    "seccomp.h: seitenmaler"
    "leptonica/: aufrichter"
    "QtSvg/: gestalt"
    "QtDBus/: desktop"
    "QtNetwork/: analyse zustand")

foreach(zeile ${zeilen} ${fremde})
    string(REGEX MATCH "^([^:]+): *(.*)$" passt "${zeile}")
    string(REPLACE " " ";" "darf_${CMAKE_MATCH_1}" "${CMAKE_MATCH_2}")
endforeach()

# Where each header of ours lies, as "folder" or "folder/innen".
file(GLOB_RECURSE dateien RELATIVE ${QUELLEN} ${QUELLEN}/*.h ${QUELLEN}/*.cpp)
if(NOT dateien OR NOT EXISTS ${QT}/QtCore)
    message(FATAL_ERROR "no sources in ${QUELLEN}, or no Qt in ${QT}")
endif()
foreach(datei ${dateien})
    get_filename_component(kopf ${datei} NAME)
    if(kopf MATCHES "\\.h$")
        if(DEFINED "liegt_${kopf}")
            message(FATAL_ERROR "${QUELLEN}/${datei}:1: error: a second header of this name beside ${liegt_${kopf}}/${kopf}")
        endif()
        get_filename_component("liegt_${kopf}" ${datei} DIRECTORY)
    endif()
endforeach()
file(GLOB module RELATIVE ${QT} ${QT}/Qt*)

# weigern(DATEI ZEILE WARUM): one line that names the place
function(weigern datei zeile warum)
    file(READ ${QUELLEN}/${datei} inhalt)
    string(FIND "\n${inhalt}" "\n${zeile}" stelle)
    string(SUBSTRING "${inhalt}" 0 ${stelle} davor)
    string(REGEX MATCHALL "\n" umbrueche "${davor}")
    list(LENGTH umbrueche nummer)
    math(EXPR nummer "${nummer} + 1")
    message(NOTICE "${QUELLEN}/${datei}:${nummer}: error: ${warum}")
    set_property(GLOBAL PROPERTY verweigert TRUE)
endfunction()

# eigenes_pruefen(DATEI ORDNER REIHE ZEILE KOPF): a header of ours
function(eigenes_pruefen datei ordner reihe zeile kopf)
    string(REGEX REPLACE "/innen$" "" heimat "${liegt_${kopf}}")
    if(heimat STREQUAL ordner OR kopf STREQUAL "namensraeume.h")
        return()
    endif()
    if(liegt_${kopf} MATCHES "/innen$")
        weigern(${datei} "${zeile}" "includes ${kopf}, which is private to ${heimat}")
    elseif(NOT heimat IN_LIST "darf_${reihe}" AND NOT "${heimat}/${kopf}" IN_LIST "darf_${reihe}")
        string(REPLACE ";" " " erlaubt "${darf_${reihe}}")
        weigern(${datei} "${zeile}" "includes ${kopf} of ${heimat}; ${reihe} may include: ${erlaubt}")
    endif()
endfunction()

# bibliothek_von(ERGEBNIS KOPF): the library that a header of others belongs to as the table has it, or nothing
function(bibliothek_von ergebnis kopf)
    set(${ergebnis} "" PARENT_SCOPE)
    if(kopf MATCHES "^(Qt[A-Z][A-Za-z0-9]*|curl|openssl)/")
        set(${ergebnis} "${CMAKE_MATCH_1}/" PARENT_SCOPE)
    elseif(DEFINED "darf_${kopf}")
        set(${ergebnis} "${kopf}" PARENT_SCOPE)
    elseif(kopf MATCHES "^[Qq]")
        foreach(modul ${module})
            if(EXISTS ${QT}/${modul}/${kopf})
                set(${ergebnis} "${modul}/" PARENT_SCOPE)
                break()
            endif()
        endforeach()
    endif()
endfunction()

# fremdes_pruefen(DATEI ORDNER ZEILE KOPF): a header of others
function(fremdes_pruefen datei ordner zeile kopf)
    if(NOT DEFINED CACHE{von_${kopf}})
        bibliothek_von(bibliothek "${kopf}")
        set("von_${kopf}" "${bibliothek}" CACHE INTERNAL "")
    endif()
    set(bibliothek "$CACHE{von_${kopf}}")
    if(bibliothek STREQUAL "" OR bibliothek STREQUAL "QtCore/" OR ordner IN_LIST "darf_${bibliothek}")
        return()
    endif()
    string(REPLACE ";" " " wessen "${darf_${bibliothek}}")
    weigern(${datei} "${zeile}" "${ordner} includes ${kopf}, which is for: ${wessen}")
endfunction()

function(include_pruefen datei ordner reihe zeile)
    if(NOT zeile MATCHES "^[ \t]*#[ \t]*include(_next)?[ \t]*([\"<])([^\">]+)[\">]")
        weigern(${datei} "${zeile}" "an include whose header cannot be read")
        return()
    endif()
    set(zeichen "${CMAKE_MATCH_2}")
    set(kopf "${CMAKE_MATCH_3}")
    get_filename_component(name "${kopf}" NAME)
    if(kopf MATCHES "/" AND (zeichen STREQUAL "\"" OR kopf MATCHES "\\.\\." OR DEFINED "liegt_${name}"))
        weigern(${datei} "${zeile}" "includes ${kopf}; headers of ours are named without a path")
    elseif(DEFINED "liegt_${kopf}")
        eigenes_pruefen(${datei} ${ordner} ${reihe} "${zeile}" ${kopf})
    else()
        fremdes_pruefen(${datei} ${ordner} "${zeile}" "${kopf}")
    endif()
endfunction()

foreach(datei ${dateien})
    get_filename_component(ordner ${datei} DIRECTORY)
    string(REGEX REPLACE "/innen$" "" ordner "${ordner}")
    set(reihe ${ordner})
    if(DEFINED "darf_${datei}")
        set(reihe ${datei})
    endif()
    if(NOT DEFINED "darf_${reihe}")
        message(FATAL_ERROR "${QUELLEN}/${datei}:1: error: the folder ${ordner} has no row in cmake/schichten.cmake")
    endif()
    file(STRINGS ${QUELLEN}/${datei} includes REGEX "^[ \t]*#[ \t]*include" ENCODING UTF-8)
    foreach(zeile IN LISTS includes)
        include_pruefen(${datei} ${ordner} ${reihe} "${zeile}")
    endforeach()
endforeach()

get_property(verweigert GLOBAL PROPERTY verweigert)
if(verweigert)
    message(FATAL_ERROR "An include skips a layer; the table stands in cmake/schichten.cmake.")
endif()
