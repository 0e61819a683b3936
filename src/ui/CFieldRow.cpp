#include "ui/CFieldRow.h"

#include "ui/CCaption.h"
#include "ui/Colours.h"

namespace zelorgas {
namespace {

// The longest meaning and name of a parameter, and room for the longest entry of a list.
constexpr const char* kLongestText = "Manifold pressure sensor full-scale point MM";
constexpr const char* kLongestName = "GP_CHANGEOVER_ON_PULSELACK ";
constexpr const char* kLongestEntry = "STEFANELLI-WHITE MMM";

// The stretch of what takes the room that there is; the rest goes to the end of the row.
constexpr int kFirst = 1000;

}  // namespace

CFieldRow::CFieldRow(const QString& text, const QString& name, QWidget* parent)
    : QWidget(parent), spoken_name_(name.isEmpty() ? text : text + ", " + name) {
  text_ = new QLabel(text, this);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setMaximumWidth(Width(kLongestText));
  labels_ = new QBoxLayout(QBoxLayout::LeftToRight);
  labels_->addWidget(text_, 1);
  if (!name.isEmpty()) {
    auto* const caption = new CCaption(name, this);
    caption->setFixedWidth(Width(kLongestName));
    labels_->addWidget(caption);
  }
  columns_ = new QHBoxLayout;
  columns_->setSpacing(fontMetrics().height());
  columns_->addLayout(labels_, kFirst);
  note_ = new QLabel(this);
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  note_->hide();
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins({});
  rows->setSpacing(fontMetrics().height() / 6);
  rows->addLayout(columns_);
  rows->addWidget(note_);
}

int CFieldRow::Width(const char* text) const { return fontMetrics().horizontalAdvance(text); }

void CFieldRow::SetEditor(QWidget* editor, const QString& object_name, const QString& tooltip) {
  editor->setObjectName(object_name);
  editor->setAccessibleName(spoken_name_);
  editor->setMinimumWidth(Width(kLongestEntry));
  editor->setMinimumHeight(fontMetrics().height() * 3 / 2);
  const bool takes_place_of_name = labels_->count() == 1;
  if (takes_place_of_name) {
    editor->setMaximumWidth(Width(kLongestName) + columns_->spacing() + Width(kLongestEntry));
    columns_->addWidget(editor, kFirst);
  } else {
    editor->setMaximumWidth(Width(kLongestEntry));
    columns_->addWidget(editor);
  }
  columns_->addStretch(1);
  text_->setBuddy(editor);
  note_->setObjectName(object_name + "_note");
  setToolTip(tooltip);
}

QSize CFieldRow::minimumSizeHint() const {
  const int width = Width(kLongestName) + columns_->spacing() + Width(kLongestEntry);
  return {width, QWidget::minimumSizeHint().height()};
}

void CFieldRow::resizeEvent(QResizeEvent*) {
  const int spare = width() - minimumSizeHint().width() - columns_->spacing();
  const bool in_one_line = spare >= Width(kLongestText) * 3 / 5;
  labels_->setDirection(in_one_line ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  labels_->setSpacing(in_one_line ? columns_->spacing() : 0);
}

void CFieldRow::SetNote(const QString& note) {
  QPalette colours = note_->palette();
  colours.setColor(QPalette::WindowText, AlertColour(palette()));
  note_->setPalette(colours);
  note_->setText(note);
  note_->setVisible(!note.isEmpty());
}

}  // namespace zelorgas
