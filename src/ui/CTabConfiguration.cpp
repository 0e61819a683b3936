#include "ui/CTabConfiguration.h"

#include <QHBoxLayout>
#include <QScrollBar>
#include <QShortcut>
#include <algorithm>
#include <cmath>

#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr double kMillibarOfBar = 1000;
constexpr double kHundredthsOfVolt = 100;

// The bar's scale is in small whole units, its text says the value.
void ShowInBar(QProgressBar* bar, double value, double end, double units, const QString& text) {
  bar->setRange(0, static_cast<int>(std::lround(end * units)));
  bar->setValue(std::clamp(static_cast<int>(std::lround(value * units)), 0, bar->maximum()));
  bar->setFormat(text);
}

}  // namespace

CTabConfiguration::CTabConfiguration(UiContext& context, PageModels& models, QWidget* parent)
    : CEcuPage(parent), context_(context), models_(models) {
  setObjectName("configuration_page");
  setAccessibleName(tr("Configuration"));
  auto* const columns = new QHBoxLayout(this);
  columns->setContentsMargins(0, 0, 0, fontMetrics().height() / 2);
  columns->setSpacing(fontMetrics().height() * 3 / 4);
  columns->addWidget(MakeSideBar());
  columns->addWidget(MakeSections(), 1);
  titles_->setCurrentRow(0);
  ShowSections();
}

QWidget* CTabConfiguration::MakeSideBar() {
  side_ = new QWidget(this);
  search_ = new QLineEdit(side_);
  search_->setObjectName("parameter_search");
  search_->setAccessibleName(tr("Search the parameters"));
  search_->setToolTip(tr("Words of a parameter's name or meaning (Ctrl+F)"));
  search_->setPlaceholderText(tr("Search"));
  search_->setClearButtonEnabled(true);
  search_->setMinimumHeight(fontMetrics().height() * 3 / 2);
  auto* const find = new QShortcut(QKeySequence::Find, this);
  connect(find, &QShortcut::activated, this, [this] {
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
  });
  auto* const leave = new QShortcut(Qt::Key_Escape, search_);
  leave->setContext(Qt::WidgetShortcut);
  connect(leave, &QShortcut::activated, search_, &QLineEdit::clear);
  connect(search_, &QLineEdit::textChanged, this, &CTabConfiguration::ShowSections);

  titles_ = new QListWidget(side_);
  titles_->setObjectName("configuration_groups");
  titles_->setAccessibleName(tr("Groups of parameters"));
  titles_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  const auto show_group = [this] {
    search_->clear();
    ShowSections();
  };
  connect(titles_, &QListWidget::currentRowChanged, this, show_group);
  connect(titles_, &QListWidget::itemClicked, this, show_group);

  completeness_ = new QLabel(side_);
  completeness_->setObjectName("completeness");
  completeness_->setTextFormat(Qt::PlainText);
  completeness_->setWordWrap(true);
  completeness_->setToolTip(tr("What a complete configuration has to have"));
  auto* const column = new QVBoxLayout(side_);
  column->setContentsMargins({});
  column->setSpacing(fontMetrics().height() / 2);
  completeness_area_ = new QScrollArea(side_);
  completeness_area_->setFrameShape(QFrame::NoFrame);
  completeness_area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  completeness_area_->setWidgetResizable(true);
  completeness_area_->setWidget(completeness_);
  completeness_area_->setMinimumHeight(fontMetrics().lineSpacing() * 2);
  column->addWidget(search_);
  column->addWidget(titles_, 2);
  column->addWidget(completeness_area_, 1);
  return side_;
}

QWidget* CTabConfiguration::MakeSections() {
  auto* const content = new QWidget;
  auto* const column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, fontMetrics().height() / 2, 0);
  column->setSpacing(fontMetrics().height() * 3 / 4);
  found_ = new QLabel(content);
  found_->setObjectName("parameters_found");
  column->addWidget(found_);
  vehicle_ = new CVehicleCard(models_.Vehicle(), models_.Configuration(), content);
  connect(vehicle_, &CVehicleCard::Edited, this, &CTabConfiguration::ShowMissingParts);
  column->addWidget(vehicle_);
  sections_.push_back({vehicle_, {}});
  for (CFieldRow* const row : vehicle_->Rows()) {
    sections_.back().items.push_back({row, nullptr, row->Words()});
  }
  AddTitle(tr("Vehicle"));
  for (const ParameterGroup& group : ParameterGroups()) AddGroup(group, column);
  column->addStretch(1);
  scroll_ = new QScrollArea(this);
  scroll_->setObjectName("parameters");
  scroll_->setAccessibleName(tr("Parameters"));
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  scroll_->setWidget(content);
  return scroll_;
}

void CTabConfiguration::resizeEvent(QResizeEvent*) {
  const int wanted = fontMetrics().horizontalAdvance("nozzle diameter (more than 1.0 mm) M");
  side_->setFixedWidth(std::min(wanted, width() / 4));
  FitCompleteness();
}

// The list of groups has the room that this text does not need.
void CTabConfiguration::FitCompleteness() {
  completeness_area_->setMaximumHeight(std::max(0, completeness_->heightForWidth(side_->width())));
}

void CTabConfiguration::AddTitle(const QString& title) {
  auto* const item = new QListWidgetItem(title, titles_);
  item->setSizeHint({0, fontMetrics().height() * 7 / 4});
}

void CTabConfiguration::AddGroup(const ParameterGroup& group, QBoxLayout* column) {
  const QString title = TranslatedMessage(group.title);
  AddTitle(title);
  const QString object_name = ToQString(group.title).toLower().replace(' ', '_').replace('-', '_');
  auto* const card = new CCard(object_name + "_card", title, column->parentWidget());
  column->addWidget(card);
  Section section{card, {}};
  for (const std::string_view name : group.names) {
    const Parameter& parameter = *FindParameter(name);
    auto* const row = CParameterRow::Make(
        parameter, {models_.Configuration(), context_.control, context_.boxes}, card);
    card->Body().addWidget(row);
    section.items.push_back({row, &parameter});
    rows_.push_back(row);
    AddCompanions(section, parameter);
  }
  sections_.push_back(std::move(section));
}

// What helps to choose a sensor stands below its list.
void CTabConfiguration::AddCompanions(Section& section, const Parameter& parameter) {
  const auto list = ListOf(parameter);
  if (list == ChoiceList::kGasPressureSensor) {
    AddSwitchMode(section, parameter);
    gas_pressure_ =
        AddLiveBar(section, parameter, "gas_pressure_now", tr("Gas pressure at this moment"));
  }
  if (list == ChoiceList::kLambdaRange) {
    lambda1_ = AddLiveBar(section, parameter, "lambda1_now", tr("Lambda 1 at this moment"));
    lambda2_ = AddLiveBar(section, parameter, "lambda2_now", tr("Lambda 2 at this moment"));
  }
}

void CTabConfiguration::AddSwitchMode(Section& section, const Parameter& parameter) {
  auto* const row = new CFieldRow(tr("Gas pressure from an on/off switch"),
                                  tr("What the list writes"), section.card);
  switch_mode_ = new QCheckBox;
  row->SetEditor(switch_mode_, "switch_mode",
                 tr("Entries of the list of gas pressure sensors are then written as those of an "
                    "on/off switch"));
  section.card->Body().addWidget(row);
  section.items.push_back({row, &parameter, row->Words()});
  // Behind a choice that was made before it and is still on its way to the ECU.
  connect(switch_mode_, &QCheckBox::clicked, this, [this](bool on) {
    context_.control.RunLaterOnThisEcu(this,
                                       [this, on] { models_.Configuration().SetSwitchMode(on); });
  });
}

QProgressBar* CTabConfiguration::AddLiveBar(Section& section, const Parameter& parameter,
                                            const QString& object_name, const QString& text) {
  auto* const row = new CFieldRow(text, tr("Live"), section.card);
  auto* const bar = new QProgressBar;
  bar->setFormat(kNoValue);
  row->SetEditor(bar, object_name, text);
  section.card->Body().addWidget(row);
  section.items.push_back({row, &parameter});
  return bar;
}

void CTabConfiguration::ShowImage() {
  for (CParameterRow* const row : rows_) row->ShowValue();
  switch_mode_->setChecked(models_.Configuration().SwitchMode());
  vehicle_->ShowVehicle();
  ShowMissingParts();
  ShowLive();
}

void CTabConfiguration::ShowLink(bool up) {
  link_up_ = up;
  if (up) return;
  for (QProgressBar* const bar : {gas_pressure_, lambda1_, lambda2_}) {
    bar->setValue(0);
    bar->setFormat(kNoValue);
  }
}

void CTabConfiguration::ShowLive() {
  if (!link_up_) return;
  if (!gas_pressure_->isVisible() && !lambda1_->isVisible()) return;
  const EcuImage image = context_.document.Snapshot();
  const ConfigurationModel& model = models_.Configuration();
  ShowInBar(gas_pressure_, image.gas_pressure_bar, model.PressureIndicatorEnd() / kMillibarOfBar,
            kMillibarOfBar, tr("%1 bar").arg(image.gas_pressure_bar, 0, 'f', 2));
  const auto show_lambda = [&model](QProgressBar* bar, double volts) {
    ShowInBar(bar, volts, model.LambdaAxisVolts(), kHundredthsOfVolt,
              tr("%1 V").arg(volts, 0, 'f', 2));
  };
  show_lambda(lambda1_, image.record.Lambda1Volts());
  show_lambda(lambda2_, image.record.Lambda2Volts());
}

void CTabConfiguration::ShowSections() {
  const QStringList words = search_->text().toLower().split(' ', Qt::SkipEmptyParts);
  const bool searching = !words.isEmpty();
  const std::vector<const Parameter*> found =
      SearchParameters(search_->text().toLower().toStdString(), [](const Parameter& parameter) {
        return TranslatedMessage(parameter.meaning).toLower().toStdString();
      });
  std::size_t count = found.size();
  const auto has_words = [&words](const Item& item) {
    return !item.words.isEmpty() && std::ranges::all_of(words, [&](const QString& word) {
      return item.words.contains(word, Qt::CaseInsensitive);
    });
  };
  const auto is_found = [&](const Item& item) {
    return std::ranges::find(found, item.parameter) != found.end() || has_words(item);
  };
  for (std::size_t i = 0; i < sections_.size(); ++i) {
    const Section& section = sections_[i];
    for (const Item& item : section.items) item.widget->setVisible(is_found(item));
    count += static_cast<std::size_t>(std::ranges::count_if(section.items, has_words));
    const bool chosen = static_cast<int>(i) == titles_->currentRow();
    section.card->setVisible(searching ? std::ranges::any_of(section.items, is_found) : chosen);
  }
  found_->setVisible(searching);
  found_->setText(count == 0 ? tr("Nothing here has these words in its name or meaning.")
                             : tr("Found: %1").arg(count));
  scroll_->verticalScrollBar()->setValue(0);
  ShowLive();
}

void CTabConfiguration::ShowMissingParts() {
  const auto missing = models_.Configuration().MissingParts(models_.Vehicle());
  QString text =
      missing.empty() ? tr("The configuration is complete.") : tr("The configuration lacks:");
  for (const FixedText part : missing) text += "\n\u2022 " + TranslatedMessage(part);
  completeness_->setText(text);
  completeness_->setAccessibleName(text);
  FitCompleteness();
}

}  // namespace zelorgas
