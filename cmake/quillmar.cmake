# Compiler settings that every target of the project shares.
add_library(quillmar_warnungen INTERFACE)
target_compile_options(quillmar_warnungen INTERFACE -Wall -Wextra -Wpedantic -Werror)
target_compile_definitions(quillmar_warnungen INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
    QUILLMAR_FASSUNG="${PROJECT_VERSION}")
add_library(quillmar_uebersetzung INTERFACE)
target_link_libraries(quillmar_uebersetzung INTERFACE quillmar_warnungen)
if(QUILLMAR_SANITIZER)
    target_compile_options(quillmar_uebersetzung INTERFACE
        -fsanitize=${QUILLMAR_SANITIZER} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(quillmar_uebersetzung INTERFACE -fsanitize=${QUILLMAR_SANITIZER})
    # Some sixty test programs of a hundred megabytes each.
    find_program(QUILLMAR_MOLD mold)
    if(QUILLMAR_MOLD)
        target_link_options(quillmar_uebersetzung INTERFACE -fuse-ld=mold)
    endif()
endif()

# Headers that nearly every file reads, compiled once for all: a build from scratch takes half the time.
file(WRITE ${CMAKE_BINARY_DIR}/vorab.cpp "")
set(vorabkoepfe
    <QDir> <QFile> <QHash> <QJsonArray> <QJsonDocument> <QJsonObject> <QList> <QMap> <QObject> <QRegularExpression> <QSet>
    <QString> <QStringList> <QTemporaryDir> <QVariant> <algorithm> <chrono> <functional> <memory> <optional>)
set(fensterkoepfe
    <QComboBox> <QEvent> <QGridLayout> <QKeyEvent> <QLabel> <QLineEdit> <QLocale> <QPainter> <QPointer> <QPushButton>
    <QTimer> <QUrl> <QVBoxLayout> <QWidget>)
add_library(quillmar_vorab STATIC ${CMAKE_BINARY_DIR}/vorab.cpp)
target_link_libraries(quillmar_vorab PRIVATE quillmar_uebersetzung Qt6::Core)
target_precompile_headers(quillmar_vorab PRIVATE ${vorabkoepfe})
add_library(quillmar_vorab_fenster STATIC ${CMAKE_BINARY_DIR}/vorab.cpp)
target_link_libraries(quillmar_vorab_fenster PRIVATE quillmar_uebersetzung Qt6::Widgets)
target_precompile_headers(quillmar_vorab_fenster PRIVATE ${vorabkoepfe} ${fensterkoepfe})

# Every include is looked at before anything is compiled; the table of who may include what stands in schichten.cmake.
file(GLOB_RECURSE schichtenquellen CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.h ${CMAKE_SOURCE_DIR}/src/*.cpp)
set(schichtenstempel ${CMAKE_BINARY_DIR}/schichten.stempel)
set(QUILLMAR_SCHICHTEN ${CMAKE_COMMAND} -DQT=${QT6_INSTALL_PREFIX}/${QT6_INSTALL_HEADERS})
add_custom_command(OUTPUT ${schichtenstempel}
    COMMAND ${QUILLMAR_SCHICHTEN} -DQUELLEN=${CMAKE_SOURCE_DIR}/src -P ${CMAKE_SOURCE_DIR}/cmake/schichten.cmake
    COMMAND ${CMAKE_COMMAND} -E touch ${schichtenstempel}
    DEPENDS ${CMAKE_SOURCE_DIR}/cmake/schichten.cmake ${schichtenquellen}
    COMMENT "Who includes what")
add_custom_target(quillmar_schichten DEPENDS ${schichtenstempel})

# quillmar_bibliothek(NAME [MOC] [FENSTER] SOURCES ... PUBLIC ... PRIVATE ...)
#   One static library per folder of src/, with its own include directory and the libraries that it may use.
function(quillmar_bibliothek name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "MOC;FENSTER" "" "SOURCES;PUBLIC;PRIVATE")
    add_library(quillmar_${name} STATIC ${arg_SOURCES})
    add_dependencies(quillmar_${name} quillmar_schichten)
    target_include_directories(quillmar_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(quillmar_${name} PUBLIC quillmar_uebersetzung ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
    set_target_properties(quillmar_${name} PROPERTIES AUTOMOC ${arg_MOC})
    if(arg_FENSTER)
        target_precompile_headers(quillmar_${name} REUSE_FROM quillmar_vorab_fenster)
    else()
        target_precompile_headers(quillmar_${name} REUSE_FROM quillmar_vorab)
    endif()
endfunction()

# quillmar_mit_seiten(PROGRAM): it shows pages, so the program that draws them must be found beside it.
function(quillmar_mit_seiten programm)
    add_dependencies(${programm} quillmar-seiten)
    file(CREATE_LINK ${CMAKE_BINARY_DIR}/src/app/quillmar-seiten ${CMAKE_CURRENT_BINARY_DIR}/quillmar-seiten SYMBOLIC)
endfunction()

# quillmar_mit_aufrichten(PROGRAM): it recognises text, so the program that straightens images must be found beside it.
function(quillmar_mit_aufrichten programm)
    add_dependencies(${programm} quillmar-aufrichten)
    file(CREATE_LINK ${CMAKE_BINARY_DIR}/src/app/quillmar-aufrichten ${CMAKE_CURRENT_BINARY_DIR}/quillmar-aufrichten
        SYMBOLIC)
endfunction()
