#pragma once
// Form1, the main menu's view.
#include <QWidget>
#include <array>
#include <memory>

class QLabel;
class QGroupBox;
class QPushButton;
class QToolButton;

namespace filo::app {

class Session;
class MainMenu;

class Form1 final : public QWidget {
    Q_OBJECT
  public:
    explicit Form1(Session& session, QWidget* parent = nullptr);
    ~Form1() override;
    MainMenu& tool() { return *tool_; }
    // Captions, level, language and line state from the tool and the session.
    void refresh();

  signals:
    void open_requested();
    void new_project_requested();
    void connection_requested();
    void exit_requested();
    void full_screen_requested();
    // Captions, level or line state were shown anew.
    void changed();

  private:
    void entry_clicked(int index);

    Session& session_;
    std::unique_ptr<MainMenu> tool_;
    std::array<QToolButton*, 4> Image4_{};
    std::array<QLabel*, 4> captions_{};  // Label1, Label2, Label9, Label3
    std::array<QPushButton*, 3> Label6_{};
    std::array<QToolButton*, 5> Image3_{};
    QGroupBox* Frame1_ = nullptr;
    QLabel* Label10_ = nullptr;
    QLabel* Label4_ = nullptr;
    QLabel* Label7_ = nullptr;
    QLabel* Label8_ = nullptr;
    QLabel* Image1_ = nullptr;
    QLabel* Label12_ = nullptr;
    QLabel* label22_ = nullptr;
    QLabel* language_caption_ = nullptr;
    QPushButton* Label5_ = nullptr;
    QPushButton* Label11_ = nullptr;
};

}  // namespace filo::app
