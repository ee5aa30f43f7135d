#include "app/avanzate2.hpp"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QSlider>
#include <QTimer>
#include <QVBoxLayout>

#include "app/project_errors.hpp"
#include "app/session.hpp"
#include "app/view_helpers.hpp"
#include "commissioning/constant_light.hpp"
#include "common/basic_functions.hpp"
#include "store/project.hpp"
#include "store/sqlite.hpp"

namespace filo::app {
namespace {

using texts::Text;

constexpr int kScaleHeight = 18;
constexpr int kMarkerWidth = 4;
constexpr int kGap = 14;

QFrame* shape(QWidget* parent, const char* name, const char* style) {
    auto* f = new QFrame(parent);
    f->setObjectName(name);
    f->setStyleSheet(style);
    return f;
}

// The two markers and the band stand on 0-255 scales that fill the width.
class Scales final : public QWidget {
  public:
    Scales(std::function<void()> laid_out, QWidget* parent)
        : QWidget(parent), laid_out_(std::move(laid_out)) {
        setMinimumSize(300, 2 * kScaleHeight + 3 * kGap);
    }

  protected:
    void resizeEvent(QResizeEvent*) override { laid_out_(); }

  private:
    std::function<void()> laid_out_;
};

}  // namespace

AVANZATE2::AVANZATE2(Session& session, const std::string& regulator, std::function<void()> ask_port,
                     QWidget* parent)
    : QDialog(parent),
      session_(session),
      ask_port_(std::move(ask_port)),
      tool_(std::make_unique<commissioning::ConstantLight>(session.modules, session.line)) {
    setObjectName("AVANZATE2");
    setModal(true);
    setWindowTitle(qs(session.texts.text(Text::RUN_CONSTANT_LIGHT)));
    tool_->MODULO_REGOLATORE = regulator;
    tool_->changed = [this] { refresh(); };
    const auto& t = session.texts;

    auto* layout = new QVBoxLayout(this);
    auto* note = new QLabel(qs(t.text(Text::LIGHT_NOTE)), this);
    note->setObjectName("Label2");
    layout->addWidget(note);

    auto* slider_row = new QHBoxLayout;
    slider_row->addWidget(new QLabel(qs(t.text(Text::LIGHT_SLIDER)), this));
    Slider1_ = new QSlider(Qt::Horizontal, this);
    Slider1_->setObjectName("Slider1");
    Slider1_->setRange(0, 100);
    slider_row->addWidget(Slider1_, 1);
    Label7_ = new QLabel(this);
    Label7_->setObjectName("Label7");
    Label7_->setMinimumWidth(40);
    slider_row->addWidget(Label7_);
    layout->addLayout(slider_row);

    auto* sensor_row = new QHBoxLayout;
    sensor_row->addWidget(new QLabel(qs(t.text(Text::LIGHT_SENSOR)), this));
    Label6_ = new QLabel(this);
    Label6_->setObjectName("Label6");
    sensor_row->addWidget(Label6_);
    sensor_row->addStretch(1);
    sensor_row->addWidget(new QLabel(qs(t.text(Text::LIGHT_COMMAND)), this));
    layout->addLayout(sensor_row);

    scales_ = new Scales([this] { place_markers(); }, this);
    Shape2_ = shape(scales_, "Shape2", "background: #E0E0E0; border: 1px solid #616161;");
    Shape3_ = shape(scales_, "Shape3", "background: #1565C0;");
    Shape6_ = shape(scales_, "Shape6", "");
    Shape6B_ = shape(scales_, "Shape6B", "background: #FFB300;");
    Shape4_ = shape(scales_, "Shape4", "background: #212121;");
    layout->addWidget(scales_);

    Label4_ = new QLabel(this);
    Label4_->setObjectName("Label4");
    Label4_->setAlignment(Qt::AlignCenter);
    QFont bold = Label4_->font();
    bold.setBold(true);
    Label4_->setFont(bold);
    layout->addWidget(Label4_);
    Label1_ = new QPushButton(qs(t.text(Text::LIGHT_CONFIRM)), this);
    Label1_->setObjectName("Label1");
    layout->addWidget(Label1_, 0, Qt::AlignRight);

    Timer2_ = new QTimer(this);
    Timer2_->setObjectName("Timer2");
    Timer2_->setInterval(commissioning::ConstantLight::kTimer2Ms);
    Timer3_ = new QTimer(this);
    Timer3_->setObjectName("Timer3");
    Timer3_->setSingleShot(true);
    connect(Timer2_, &QTimer::timeout, this, [this] { tool_->Timer2_Timer(); });
    connect(Timer3_, &QTimer::timeout, this, [this] {
        tool_->Timer3_Timer();
        refresh();
    });
    connect(Slider1_, &QSlider::sliderPressed, this, [this] {
        tool_->Slider1_MouseDown();
        refresh();
    });
    connect(Slider1_, &QSlider::sliderReleased, this,
            [this] { Slider1_Change(Slider1_->value()); });
    // Keys and clicks on the groove move it without a drag.
    connect(Slider1_, &QSlider::valueChanged, this, [this](int value) {
        if (!Slider1_->isSliderDown() && value != tool_->Slider1) Slider1_Change(value);
    });
    connect(Label1_, &QPushButton::clicked, this, [this] { Label1_Click(); });
}

AVANZATE2::~AVANZATE2() = default;

bool AVANZATE2::load() {
    try {
        tool_->Form_Load();
    } catch (const store::ProjectError& e) {
        tell_project_fault(session_, e);
        return false;
    } catch (const sqlite::SqlError& e) {
        tell_project_fault(session_, e);
        return false;
    }
    refresh();
    return true;
}

void AVANZATE2::Slider1_Change(int value) {
    tool_->Slider1_Change(value);
    refresh();
    if (!session_.on_line() && ask_port_) ask_port_();
    if (!session_.on_line()) return;
    tool_->send_set_point();
    refresh();
}

void AVANZATE2::Label1_Click() {
    try {
        tool_->Label1_Click(session_.on_line());
    } catch (const store::ProjectError& e) {
        tell_project_fault(session_, e);
        return;
    } catch (const sqlite::SqlError& e) {
        tell_project_fault(session_, e);
        return;
    }
    refresh();
    accept();
}

void AVANZATE2::refresh() {
    const commissioning::ConstantLight& w = *tool_;
    if (!Slider1_->isSliderDown() && Slider1_->value() != w.Slider1) {
        const QSignalBlocker quiet(Slider1_);
        Slider1_->setValue(w.Slider1);
    }
    Label7_->setText(QString::number(w.Label7));
    Label6_->setText(w.Label6 < 0 ? QString() : QString::number(w.Label6));
    Label4_->setText(qs(session_.texts.text(w.Label4)));
    Shape6_->setStyleSheet(w.Shape6_red ? "background: #FF0000;" : "background: #808080;");
    Shape6B_->setVisible(w.Shape6B_visible);
    if (w.Timer2 && !Timer2_->isActive()) Timer2_->start();
    if (!w.Timer2) Timer2_->stop();
    if (w.Timer3 && !Timer3_->isActive()) Timer3_->start(commissioning::ConstantLight::kTimer3Ms);
    place_markers();
}

void AVANZATE2::place_markers() {
    const int width = scales_->width() - kMarkerWidth;
    auto at = [width](double value) { return static_cast<int>(value * width / 255.0); };
    const int sensor_top = kGap, command_top = 2 * kGap + kScaleHeight;
    Shape2_->setGeometry(0, sensor_top, scales_->width(), kScaleHeight);
    Shape6_->setGeometry(0, command_top, scales_->width(), kScaleHeight);
    // Shape6B lies on Shape6, from its left, as wide as the lowest power.
    Shape6B_->setGeometry(0, command_top, at(basic::val(tool_->POTENZA_MINIMA)), kScaleHeight);
    Shape3_->setVisible(tool_->Label6 >= 0);
    Shape3_->setGeometry(at(tool_->Label6), sensor_top - 4, kMarkerWidth, kScaleHeight + 8);
    Shape4_->setVisible(tool_->comando >= 0);
    Shape4_->setGeometry(at(tool_->comando), command_top - 4, kMarkerWidth, kScaleHeight + 8);
    Shape4_->raise();
}

}  // namespace filo::app
