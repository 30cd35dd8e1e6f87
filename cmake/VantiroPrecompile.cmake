# Precompiles what nearly every source includes. It takes a third off a whole build with an empty
# compiler cache. Off by default: a source that forgets an include compiles with it.
#
# vantiro_reuse_precompiled(<target> core|widgets) makes a target include it. "widgets" is for targets
# that link Qt6::Widgets. The headers of Qt Test are not among them: only tests include those.

option(VANTIRO_PRECOMPILE "Precompile the headers of the standard library and Qt" OFF)

if(VANTIRO_PRECOMPILE)
    # What ccache asks for when headers are precompiled.
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        target_compile_options(vantiro_options INTERFACE -fpch-preprocess)
    elseif(CMAKE_CXX_COMPILER_ID MATCHES Clang)
        target_compile_options(vantiro_options INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
    endif()
    set(core_headers
        <algorithm> <array> <atomic> <chrono> <functional> <limits> <map> <memory> <optional> <string>
        <tuple> <utility> <variant> <vector>
        <QByteArray> <QCoreApplication> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash>
        <QJsonArray> <QJsonDocument> <QJsonObject> <QList> <QLocale> <QMap> <QObject> <QPointer>
        <QRegularExpression> <QSet> <QSettings> <QString> <QStringList> <QTemporaryDir> <QThread>
        <QTimer> <QUrl> <QVariant>)
    set(widgets_headers ${core_headers}
        <QApplication> <QBoxLayout> <QComboBox> <QDialog> <QIcon> <QImage> <QLabel> <QLineEdit>
        <QListWidget> <QMenu> <QPainter> <QPushButton> <QTableWidget> <QTreeWidget> <QWidget>)
    file(WRITE ${PROJECT_BINARY_DIR}/precompiled/empty.cpp "")
    foreach(kind IN ITEMS core widgets)
        add_library(vantiro_precompiled_${kind} OBJECT ${PROJECT_BINARY_DIR}/precompiled/empty.cpp)
        set_target_properties(vantiro_precompiled_${kind} PROPERTIES AUTOMOC OFF AUTORCC OFF)
        target_link_libraries(vantiro_precompiled_${kind} PRIVATE vantiro_options)
        target_precompile_headers(vantiro_precompiled_${kind} PRIVATE ${${kind}_headers})
    endforeach()
    target_link_libraries(vantiro_precompiled_core PRIVATE Qt6::Core)
    target_link_libraries(vantiro_precompiled_widgets PRIVATE Qt6::Widgets)
endif()

function(vantiro_reuse_precompiled target kind)
    if(VANTIRO_PRECOMPILE)
        target_precompile_headers(${target} REUSE_FROM vantiro_precompiled_${kind})
    endif()
endfunction()
