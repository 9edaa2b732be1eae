#include "drawing/inspector/forms/object_inspector_page.h"

#include "drawing/inspector/forms/object_inspector.h"
#include "formkit/layout.h"
#include "formkit/widgets.h"

using namespace formkit;

ObjectInspectorPage::ObjectInspectorPage(QWidget* parent) : QWidget(parent)
{
    nameForm(this, "ObjectInspectorPage", QString());
    layOut(this).column({remark_ = hidden(note("RemarkLabel"))});
    layout()->setContentsMargins(0, 0, 0, 0);
    putNothing();
}

void ObjectInspectorPage::put(QWidget* content, const QString& remark)
{
    remark_->setText(remark);
    remark_->setVisible(!remark.isEmpty());
    if (content_) {
        // It may be at work just now: what it does can move the selection.
        layout()->removeWidget(content_);
        content_->hide();
        content_->setParent(nullptr);
        content_->deleteLater();
    }
    content_ = content;
    layout()->addWidget(content_);
    content_->show();
}

void ObjectInspectorPage::putText(const QString& text)
{
    auto* shown = named<QLabel>("InspectorText", text);
    shown->setAlignment(Qt::AlignCenter);
    shown->setWordWrap(true);
    put(shown);
}

void ObjectInspectorPage::putNothing() { putText(QStringLiteral("Не выбран элемент ГМН")); }

void ObjectInspectorPage::refresh()
{
    putNothing();
    inspectSelection();
}
