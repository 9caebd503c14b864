// SPDX-License-Identifier: GPL-3.0-or-later
#include "stroke_font.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <string_view>

namespace orb {

namespace {

/// Each point is its x and its y, each stroke ends with a blank. The cell is 4 units wide, unless the glyph is narrow,
/// and 6 high; a comma reaches one unit below it.
struct Glyph {
    char16_t character;
    std::string_view strokes;
};

constexpr std::array glyphs{
    Glyph{u' ', ""},
    Glyph{u'0', "103041453616050110"},
    Glyph{u'1', "112026 1636"},
    Glyph{u'2', "0110304142060646"},
    Glyph{u'3', "0110304142334445361605 2333"},
    Glyph{u'4', "36300444"},
    Glyph{u'5', "400003334445361605"},
    Glyph{u'6', "30100105163645443303"},
    Glyph{u'7', "0040412326"},
    Glyph{u'8', "103041423313020110 1304051636454433"},
    Glyph{u'9', "43130201103041453616"},
    Glyph{u'A', "0602204246 0444"},
    Glyph{u'B', "00304142334445360600 0333"},
    Glyph{u'C', "4130100105163645"},
    Glyph{u'D', "00304145360600"},
    Glyph{u'E', "40000646 0333"},
    Glyph{u'F', "400006 0333"},
    Glyph{u'G', "41301001051636454323"},
    Glyph{u'H', "0006 4046 0343"},
    Glyph{u'I', "1030 2026 1636"},
    Glyph{u'J', "4045361605"},
    Glyph{u'K', "0006 401303 1346"},
    Glyph{u'L', "000646"},
    Glyph{u'M', "0600224046"},
    Glyph{u'N', "0600 0145 4046"},
    Glyph{u'O', "103041453616050110"},
    Glyph{u'P', "06003041423303"},
    Glyph{u'Q', "103041453616050110 2446"},
    Glyph{u'R', "06003041423303 234546"},
    Glyph{u'S', "413010010213334445361605"},
    Glyph{u'T', "0040 2026"},
    Glyph{u'U', "000516364540"},
    Glyph{u'V', "0004264440"},
    Glyph{u'W', "0006244640"},
    Glyph{u'X', "00014546 40410506"},
    Glyph{u'Y', "0001234140 2326"},
    Glyph{u'Z', "004041050646"},
    Glyph{u'm', "0602324346 2226"},
    Glyph{u's', "433212031434453606"},
    Glyph{u'\u03A9', "061615030110304143353646"},
    Glyph{u'.', "0606"},
    Glyph{u',', "151607"},
    Glyph{u':', "0102 0405"},
    Glyph{u'-', "1333"},
    Glyph{u'+', "0343 2125"},
    Glyph{u'/', "0640"},
    Glyph{u'%', "0640 0101 4545"},
    Glyph{u'(', "10010516"},
    Glyph{u')', "00111506"},
    Glyph{u'=', "0242 0444"},
    Glyph{u'_', "0646"},
    Glyph{u'<', "300336"},
    Glyph{u'>', "003306"},
    Glyph{u'?', "011030414224 2626"},
    Glyph{u'!', "0004 0606"},
    Glyph{u'*', "2125 0244 0442"},
    Glyph{u'#', "1016 3036 0242 0444"},
    Glyph{u'\'', "0001"},
    Glyph{u'"', "0001 2021"},
};
constexpr std::string_view unknown = "0040460600";

constexpr int fullWidth = 4;
constexpr int gap = 2;

const Glyph* find(char16_t character)
{
    const auto found = std::ranges::find(glyphs, character, &Glyph::character);
    return found == glyphs.end() ? nullptr : &*found;
}

std::string_view strokesOf(QChar character)
{
    const Glyph* glyph = find(character.unicode());
    if (glyph == nullptr)
        glyph = find(character.toUpper().unicode());
    return glyph == nullptr ? unknown : glyph->strokes;
}

/// Signs are narrow, letters and digits are not.
int widthOf(QChar character)
{
    switch (character.unicode()) {
    case u'.':
    case u':':
    case u'!':
    case u'\'':
        return 0;
    case u',':
    case u'(':
    case u')':
        return 1;
    case u'"':
        return 2;
    case u'<':
    case u'>':
        return 3;
    default:
        return fullWidth;
    }
}

QPen penOf(const QPainter& painter, double weight)
{
    return QPen(painter.pen().color(), weight, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void drawStroke(QPainter& painter, const QPolygonF& stroke)
{
    const bool isDot = stroke.size() == 2 && stroke.first() == stroke.last();
    if (isDot)
        painter.drawPoint(stroke.first());
    else
        painter.drawPolyline(stroke);
}

void drawGlyph(QPainter& painter, const QPointF& topLeft, double scale, std::string_view points)
{
    QPolygonF stroke;
    for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
        if (points[i] == ' ') {
            drawStroke(painter, stroke);
            stroke.clear();
            ++i;
        }
        stroke << topLeft + QPointF(points[i] - '0', points[i + 1] - '0') * scale;
    }
    drawStroke(painter, stroke);
}

} // namespace

double StrokeFont::width(const QString& text) const
{
    int units = text.isEmpty() ? 0 : -gap;
    for (const QChar character : text)
        units += widthOf(character) + gap;
    return units * scale;
}

void StrokeFont::draw(QPainter& painter, const QPointF& topLeft, const QString& text) const
{
    painter.save();
    painter.setPen(penOf(painter, weight));
    painter.setRenderHint(QPainter::Antialiasing, weight > 1);
    double x = topLeft.x();
    for (const QChar character : text) {
        drawGlyph(painter, {x, topLeft.y()}, scale, strokesOf(character));
        x += (widthOf(character) + gap) * scale;
    }
    painter.restore();
}

} // namespace orb
