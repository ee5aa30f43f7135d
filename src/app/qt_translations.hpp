#pragma once
// The toolkit's own texts (question buttons, file dialogs) in the language
// chosen, from Qt's translations as the system installs them.
#include <QTranslator>

namespace filo::texts {
enum class Language;
}

namespace filo::app {

class QtTranslations {
  public:
    QtTranslations() = default;
    ~QtTranslations();
    QtTranslations(const QtTranslations&) = delete;
    QtTranslations& operator=(const QtTranslations&) = delete;

    // Installs the translation of the language on the application, in place
    // of the one before; nothing when it is the one in use. False when the
    // system has none: the toolkit's English remains.
    bool use(texts::Language language);

  private:
    QTranslator translator_;
    bool installed_ = false;
    int language_ = -1;  // the one in use, -1 before the first
};

}  // namespace filo::app
