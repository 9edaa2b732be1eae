// A square of wells for the forms of maps: its border, a stored contour, and
// the answers to what the commands ask.
#pragma once

#include "analysis/maps/map_fixture.h"

#include <script/modal_driver.h>

#include <QWidget>

// Gives the border when the command asks for it, or leaves the prompt.
class BorderAnswer final : public PromptBackend {
public:
    explicit BorderAnswer(NcDbObjectId border) : border_(border), before_(setPromptBackend(this)) { }
    ~BorderAnswer() override { setPromptBackend(before_); }
    PromptReply ask(const PromptRequest& request) override
    {
        prompts << request.prompt;
        PromptReply reply;
        if (!border_.isNull()) {
            reply.status = kPromptNormal;
            reply.entity = border_;
        }
        return reply;
    }
    void print(const QString& text) override { printed += text; }
    QStringList prompts;
    QString printed;

private:
    NcDbObjectId border_;
    PromptBackend* before_;
};

class MapFormFixture : public MapFixture {
protected:
    template <class Widget>
    static Widget* child(const QWidget& form, const char* name)
    {
        auto* found = form.findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    NcDbObjectId squareBorder() { return addBorder({{-10, -10}, {110, -10}, {110, 110}, {-10, 110}}); }
    void storeContour()
    {
        database.exec("insert into contours (contour_id, position_id, contour_name) overriding system value "
                      "values (1, 1, 'Контур 1');"
                      "insert into contours_points (contour_id, x, y, param, dist) values "
                      "(1, -10, -10, 0, 0), (1, 110, -10, 1, 120), (1, 110, 110, 2, 240), (1, -10, 110, 3, 360)");
    }
    ModalDriver driver;
};

class TemperatureMap : public MapFormFixture {
protected:
    void SetUp() override
    {
        MapFixture::SetUp();
        addSquare();
    }
};
