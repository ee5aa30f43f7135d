#pragma once
// Form11, the window of the panel interface (type 1E): it draws the message
// editor and forwards the installer's typing and clicks to it. The text box
// shows each message in its colours with the codes in white, and a preview
// shows it as the panel will: colours, blinking, sound.
#include <QWidget>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTextEdit;
class QTimer;
class QVBoxLayout;

namespace filo::modules {
class MessageEditor;
}

namespace filo::app {

class Session;

class Form11 final : public QWidget {
    Q_OBJECT
  public:
    explicit Form11(Session& session, QWidget* parent = nullptr);
    ~Form11() override;
    modules::MessageEditor& tool() { return *tool_; }
    // Form_Load and Form_Activate on CODICE_MODULO of the session; false when
    // the project can't be read (the message was shown, closed() follows).
    bool load();
    // The buttons: 0 Salva, 2 ELIMINA MODULO, 5 Esci.
    void Image1_Click(int n);
    void refresh();

  signals:
    // The window goes; its opener shows again.
    void closed();

  private:
    void build_message(QVBoxLayout* outer);
    void text_changed();
    void show_text();
    void show_preview();

    Session& session_;
    std::unique_ptr<modules::MessageEditor> tool_;
    bool filling_ = false;
    bool blink_on_ = true;
    QLabel* Label16_ = nullptr;
    QLineEdit* Text4_ = nullptr;
    QCheckBox* Check1_ = nullptr;
    QComboBox* Combo1_ = nullptr;
    QLabel* Label6_ = nullptr;
    QLineEdit* Text1_ = nullptr;
    QTextEdit* RichTextBox1_ = nullptr;
    QWidget* persistence_ = nullptr;
    QLineEdit* Text5_ = nullptr;
    QComboBox* Combo3_ = nullptr;
    QComboBox* Combo4_ = nullptr;
    QCheckBox* Check2_ = nullptr;
    QCheckBox* Check3_ = nullptr;
    QCheckBox* Check4_ = nullptr;
    QLabel* preview_ = nullptr;
    QTimer* blink_ = nullptr;
    QPushButton* Image1_2_ = nullptr;
};

}  // namespace filo::app
