#include "app/qt_translations.hpp"

#include <QCoreApplication>
#include <QLibraryInfo>

#include "texts/language_tables.hpp"

namespace filo::app {

QtTranslations::~QtTranslations() {
    if (installed_) QCoreApplication::removeTranslator(&translator_);
}

bool QtTranslations::use(texts::Language language) {
    if (static_cast<int>(language) == language_) return installed_;
    language_ = static_cast<int>(language);
    if (installed_) QCoreApplication::removeTranslator(&translator_);
    installed_ = false;
    const std::string_view code = texts::speech_language(language);
    const QString name = QString::fromUtf8(code.data(), static_cast<qsizetype>(code.size()));
    if (!translator_.load("qtbase_" + name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        return false;
    installed_ = QCoreApplication::installTranslator(&translator_);
    return installed_;
}

}  // namespace filo::app
