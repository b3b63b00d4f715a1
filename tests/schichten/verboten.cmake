# cmake -DQUELLEN=<src> -DQT=… -DSKRIPT=<schichten.cmake> -DORT=<folder to work in> -P verboten.cmake
#
# Adds one forbidden include at a time to a copy of the sources. Each row: the file, what is added, what is to be told.
set(reihen
    "ui/pruefung/angabenfeld.cpp|\"datenbank.h\"|datenbank.h, which is private to katalog"
    "ui/ablauf/laufteile.cpp|<sqlite3.h>|sqlite3.h, which is for: katalog"
    "ui/protokoll/protokollansicht.cpp|\"bewegungsgang.h\"|bewegungsgang.h of ablage"
    "ui/einrichtung/einrichtungsansicht.cpp|\"dokumente.h\"|dokumente.h of katalog"
    "ui/ablauf/laufteile.cpp|\"pruefansicht.h\"|pruefansicht.h of ui/pruefung"
    "ui/bedienteile/teiler.h|\"ollama.h\"|ollama.h of analyse"
    "ui/vorschau/vorschau.cpp|\"pruefung.h\"|pruefung.h of zustand"
    "ui/pruefung/aktionsfeld.cpp|<QPdfDocument>|QPdfDocument, which is for: seitenmaler"
    "seiten/seitenwerk.cpp|<QPdfDocument>|QPdfDocument, which is for: seitenmaler"
    "seitenmaler/seitenmaler.cpp|\"hintergrund.h\"|hintergrund.h of grundlage"
    "seiten/malprozess.cpp|<seccomp.h>|seccomp.h, which is for: seitenmaler"
    "ui/kopfleiste.cpp|<QtSql/QSqlQuery>|QtSql/QSqlQuery, which is for: "
    "lernen/lernspeicher.h|\"einordnung.h\"|einordnung.h of analyse"
    "grundlage/text.cpp|\"sprache.h\"|sprache.h of sprache"
    "zustand/zustand.cpp|\"hauptfenster.h\"|hauptfenster.h of ui"
    "zustand/entwurf.h|<QWidget>|QWidget, which is for: ui"
    "analyse/lauf.cpp|\"warteschlange.h\"|warteschlange.h, which is private to katalog"
    "analyse/lauf.cpp|<warteschlange.h>|warteschlange.h, which is private to katalog"
    "analyse/lauf.cpp|\"../katalog/innen/wert.h\"|headers of ours are named without a path"
    "ablage/ziel.cpp|<curl/curl.h>|curl/curl.h, which is for: analyse"
    "katalog/innen/wert.h|<openssl/evp.h>|openssl/evp.h, which is for: grundlage"
    "app/fenster.cpp|\"ablagewerk.h\"|ablagewerk.h of ablage"
    "profil/struktur.cpp|KOPF|an include whose header cannot be read")

set(kopie ${ORT}/src)
file(REMOVE_RECURSE ${kopie})
file(COPY ${QUELLEN} DESTINATION ${ORT} FILES_MATCHING PATTERN *.h PATTERN *.cpp)

function(pruefen)
    execute_process(COMMAND ${CMAKE_COMMAND} -DQUELLEN=${kopie} -DQT=${QT} -P ${SKRIPT}
        RESULT_VARIABLE ergebnis OUTPUT_QUIET ERROR_VARIABLE gesagt)
    set(ergebnis ${ergebnis} PARENT_SCOPE)
    set(gesagt "${gesagt}" PARENT_SCOPE)
endfunction()

pruefen()
if(NOT ergebnis EQUAL 0)
    message(SEND_ERROR "The sources as they are were refused: ${gesagt}")
endif()
foreach(reihe ${reihen})
    string(REGEX MATCH "^([^|]+)[|]([^|]+)[|](.+)$" passt "${reihe}")
    set(datei ${CMAKE_MATCH_1})
    set(include "${CMAKE_MATCH_2}")
    set(satz "${CMAKE_MATCH_3}")
    file(READ ${kopie}/${datei} vorher)
    file(WRITE ${kopie}/${datei} "// first line\n# include ${include}\n${vorher}")
    pruefen()
    file(WRITE ${kopie}/${datei} "${vorher}")
    string(FIND "${gesagt}" "${kopie}/${datei}:2: error: " ort)
    string(FIND "${gesagt}" "${satz}" wort)
    string(REGEX MATCHALL ": error: " verstoesse "${gesagt}")
    list(LENGTH verstoesse anzahl)
    if(ergebnis EQUAL 0 OR ort EQUAL -1 OR wort EQUAL -1 OR NOT anzahl EQUAL 1)
        message(SEND_ERROR "${datei} with ${include}: status ${ergebnis}, expected \"${satz}\" in line 2, told: ${gesagt}")
    endif()
endforeach()
pruefen()
if(NOT ergebnis EQUAL 0)
    message(SEND_ERROR "After all of them were taken out again: ${gesagt}")
endif()
