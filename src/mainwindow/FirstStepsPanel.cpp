#include "mainwindow/FirstStepsPanel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "widgets/Tones.h"
#include "widgets/UserSettings.h"
#include "widgets/Utf8.h"

using namespace Qt::Literals::StringLiterals;
using yearbook::FirstStep;

namespace mainwindow {
namespace {

constexpr auto kDismissed = "ersteSchritte/ausgeblendet";

}  // namespace

FirstStepsPanel::FirstStepsPanel(QWidget* parent) : Bar(parent) {
  setObjectName(u"fraErsteSchritte"_s);
  setAccessibleName(u"Erste Schritte"_s);
  buildLayout();
  for (const FirstStep step : yearbook::kFirstSteps)
    connect(cmdSchritt(int(step)), &QToolButton::clicked, this,
            [this, step] { Q_EMIT chosen(step); });
  connect(cmdZumFeld, &QPushButton::clicked, this, [this] { Q_EMIT chosen(present_); });
  connect(cmdNichtMehr, &QPushButton::clicked, this, &FirstStepsPanel::dismiss);
}

void FirstStepsPanel::buildLayout() {
  auto* head = new QLabel(u"Erste Schritte"_s, this);
  QFont bold = font();
  bold.setBold(true);
  head->setFont(bold);
  cmdNichtMehr->setText(u"Nicht mehr zeigen"_s);
  cmdNichtMehr->setAccessibleName(u"Erste Schritte nicht mehr zeigen"_s);
  cmdNichtMehr->setFlat(true);
  cmdZumFeld->setText(u"Zum &Feld"_s);
  cmdZumFeld->setAccessibleName(u"Zum Feld"_s);
  lblSchritt->setWordWrap(true);
  // A longer sentence moves nothing either.
  lblSchritt->setMinimumHeight(2 * lblSchritt->fontMetrics().lineSpacing());
  auto* steps = new QHBoxLayout;
  steps->setSpacing(2);
  steps->addWidget(head);
  steps->addSpacing(8);
  for (QToolButton* step : cmdSchritt) {
    if (step != cmdSchritt(0)) steps->addWidget(new QLabel(u"›"_s, this));
    step->setFocusPolicy(Qt::StrongFocus);
    steps->addWidget(step);
  }
  steps->addStretch();
  steps->addWidget(cmdNichtMehr);
  auto* now = new QHBoxLayout;
  now->setSpacing(8);
  now->addWidget(lblSchritt, 1);
  now->addWidget(cmdZumFeld);
  now->addWidget(cmdAusVorjahr);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(16, 4, 8, 4);
  rows->setSpacing(4);
  rows->addLayout(steps);
  rows->addLayout(now);
}

void FirstStepsPanel::offer(const yearbook::FieldValues& values, const QString& before) {
  const auto done = firstStepsDone(values);
  const auto next = std::find(done.begin(), done.end(), false);
  if (next == done.end() || widgets::userSettings().value(kDismissed).toBool()) return want(false);
  present_ = yearbook::kFirstSteps[std::size_t(next - done.begin())];
  for (const FirstStep step : yearbook::kFirstSteps) showStep(step, done[step], step == present_);
  lblSchritt->setText(QString::fromStdString(adviceFor(present_, values)));
  const QString caption = u"Aus "_s + before + u" übernehmen..."_s;
  cmdAusVorjahr->setText(QString(caption).replace(u'&', u"&&"_s));
  cmdAusVorjahr->setAccessibleName(caption);
  cmdAusVorjahr->setVisible(!before.isEmpty());
  want(true);
  if (std::exchange(told_, lblSchritt->text()) != lblSchritt->text()) announce(lblSchritt);
}

void FirstStepsPanel::showStep(FirstStep step, bool done, bool present) {
  QToolButton* button = cmdSchritt(int(step));
  const QString name = widgets::utf8(nameOf(step));
  const QString number = QString::number(int(step) + 1);
  button->setText((done ? u"✓"_s : number) + u' ' + name);
  button->setAccessibleName(u"Schritt "_s + number + u", "_s + name +
                            (done ? u", erledigt"_s : QString()));
  button->setToolTip(widgets::utf8(adviceFor(step)));
  button->setAutoRaise(!present);
  QFont font = this->font();
  font.setBold(present);
  button->setFont(font);
  widgets::setTone(button, done ? std::optional(widgets::Tone::Good) : std::nullopt);
}

void FirstStepsPanel::dismiss() {
  widgets::userSettings().setValue(kDismissed, true);
  closeByHand();
}

}  // namespace mainwindow
