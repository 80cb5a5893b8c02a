#include "desktop/desktop_fixture.h"

#include "desktop/style/colours.h"
#include "desktop/style/fonts.h"
#include "runtime/controls/images.h"
#include "runtime/controls/shapes.h"

#include <QPainter>

#include <tuple>

namespace lookfar::desktop {
namespace {

const FormDesign black_form{.Client = {3000, 3000}, .BackColor = colour::black};

using DrawingTest = DesktopTest;

/// Back to front: a red picture, a tint over its right half, a green rectangle over its lower
/// half, a label in the corner of them all.
class LayersTest : public DesktopTest {
  protected:
    LayersTest() { show(form); }

    Form form{runtime, black_form};
    Label Label1{form, {.At = {2250, 2250, 600, 600}, .BackColor = 0x00FF8000}};
    Shape Shape1{form,
                 {.At = {0, 1500, 3000, 1350},
                  .Border = BorderStyle::transparent,
                  .Fill = FillStyle::solid,
                  .FillColor = 0x0000FF00}};
    Shape Tint{form,
               {.At = {1500, 0, 1500, 3000},
                .DrawMode = DrawMode::merge_pen,
                .Border = BorderStyle::transparent,
                .Fill = FillStyle::solid,
                .FillColor = 0x00400F0F}};
    Image Image1{form,
                 {.Picture = plain_picture(20, 20, QColor(0xC0, 0x10, 0x20)),
                  .At = {0, 0, 3000, 3000},
                  .Stretch = true}};
};

TEST_F(LayersTest, ControlsAreDrawnBackToFrontAndTintsMergeBitByBit) {
    EXPECT_EQ(pixel(form, 50, 50), 0xC01020U);
    EXPECT_EQ(pixel(form, 150, 50), 0xC01020U | 0x0F0F40U);
    EXPECT_EQ(pixel(form, 50, 150), 0x00FF00U);
    EXPECT_EQ(pixel(form, 150, 130), 0x00FF00U);
    EXPECT_EQ(pixel(form, 170, 170), 0x0080FFU);
    EXPECT_EQ(pixel(form, 150, 195), 0xC01020U | 0x0F0F40U);
    Tint.Visible = false;
    Image1.Visible = false;
    let_loop_come_round();
    EXPECT_EQ(pixel(form, 150, 50), 0x000000U);
}

Picture::Change painted(std::uint8_t value) {
    return [value](auto, auto new_bytes) { std::ranges::fill(new_bytes, value); };
}

TEST_F(LayersTest, APictureIsScaledOnceUntilItsBytesOrItsSizeChange) {
    const ScaledPictures& pictures = window(form).drawn().pictures();
    const int first = pictures.prepared();
    EXPECT_GE(first, 1);
    Label1.BackColor = colour::white;
    let_loop_come_round();
    EXPECT_EQ(pixel(form, 170, 170), 0xFFFFFFU);
    EXPECT_EQ(pictures.prepared(), first);

    const auto picture = Image1.Picture.get();
    picture->rewrite(painted(0x55));
    form.Caption = std::string("Only the picture is painted again for this");
    EXPECT_TRUE(comes_true([&] { return on_screen(form, 50, 50) == 0x555555U; }));
    EXPECT_EQ(pictures.prepared(), first + 1);
    EXPECT_TRUE(window(form).drawn().show_edited_pictures().isEmpty()) << "painted once";

    Image1.Width = 1500;
    ASSERT_TRUE(comes_true([&] { return pictures.prepared() == first + 2; }));
    EXPECT_EQ(pixel(form, 150, 20), 0x0F0F40U);
    Image1.Visible = false;
    let_loop_come_round();
    EXPECT_FALSE(pictures.is_up_to_date(Image1, picture)) << "no memory for a hidden picture";
    Image1.Visible = true;
    ASSERT_TRUE(comes_true([&] { return pictures.prepared() == first + 3; }));

    form.Hide();
    let_loop_come_round();
    EXPECT_FALSE(pictures.is_up_to_date(Image1, picture)) << "nor for one in a hidden window";
    picture->rewrite(painted(0x66));
    Image1.Width = 900;
    let_loop_come_round();
    EXPECT_EQ(pictures.prepared(), first + 3);
}

TEST_F(DrawingTest, WhatChangesAtOnceInSeveralPlacesIsPaintedInEach) {
    Form form(runtime, {.Client = {3000, 3000},
                        .Border = FormBorder::fixed_dialog,
                        .ControlBox = false,
                        .BackColor = colour::black});
    Label left(form, {.At = {0, 0, 600, 600}, .BackColor = colour::black});
    Label right(form, {.At = {2400, 2400, 600, 600}, .BackColor = colour::black});
    show(form);
    ASSERT_TRUE(comes_true([&] { return on_screen(form, 100, 100) == 0x000000U; }));
    left.BackColor = colour::white;
    right.BackColor = colour::white;
    EXPECT_TRUE(comes_true([&] { return on_screen(form, 180, 180) == 0xFFFFFFU; }));
    EXPECT_EQ(on_screen(form, 20, 20), 0xFFFFFFU);
    const unsigned outline = window(form).palette().color(QPalette::Dark).rgb() & 0xFFFFFFU;
    for (const int corner : {0, 199})
        EXPECT_EQ(on_screen(form, corner, corner), outline);
}

TEST_F(DrawingTest, APictureOfItsNaturalSizeIsShownPixelByPixel) {
    const auto file = lookfar::testing::detailed_jpeg(321, 241);
    const QImage picture = QImage::fromData(file.data(), static_cast<int>(file.size()));
    Form form(runtime, {.Client = {6000, 4500}});
    const Image shown(
        form, {.Picture = picture_of(picture), .At = {60, 120, 4815, 3615}, .Stretch = true});
    show(form);
    EXPECT_TRUE(pixels(form).copy(4, 8, 321, 241).convertToFormat(picture.format()) == picture);
}

TEST_F(DrawingTest, AScreenOfMorePixelsShowsTheFinePicture) {
    Form form(runtime, black_form);
    const Image emblem(form, {.Picture = plain_picture(8, 8, Qt::red),
                              .FinePicture = plain_picture(16, 16, Qt::green),
                              .At = {0, 0, 120, 120}});
    show(form);
    EXPECT_EQ(pixel(form, 4, 4), 0xFF0000U);
    QImage screen(32, 32, QImage::Format_RGB32);
    screen.setDevicePixelRatio(2);
    QPainter painter(&screen);
    window(form).drawn().paint(painter, window(form).rect(), window(form).palette());
    EXPECT_EQ(screen.pixelColor(8, 8), QColor(Qt::green));
}

TEST_F(DrawingTest, APictureOfLessThanAPixelIsALine) {
    Form form(runtime, black_form);
    const auto white = plain_picture(1, 1, Qt::white);
    const Image row(form, {.Picture = white, .At = {150, 1500, 1500, 0.2F}, .Stretch = true});
    const Image column(form, {.Picture = white, .At = {150, 150, 0.2F, 1200}, .Stretch = true});
    show(form);
    EXPECT_EQ(lit_rectangle(pixels(form)), QRect(10, 10, 100, 91));
}

TEST_F(DrawingTest, TransparentPixelsLetWhatLiesBehindShineThrough) {
    QImage half(2, 1, QImage::Format_ARGB32);
    half.setPixel(0, 0, qRgba(0xFF, 0, 0, 0));
    half.setPixel(1, 0, qRgba(0xFF, 0, 0, 0xFF));
    Form form(runtime, black_form);
    const Image shown(form, {.Picture = picture_of(half), .At = {150, 150, 1, 1}});
    show(form);
    EXPECT_EQ(pixel(form, 10, 10), 0x000000U);
    EXPECT_EQ(pixel(form, 11, 10), 0xFF0000U);
}

TEST_F(DrawingTest, ShapesFillTheirForms) {
    Form form(runtime, black_form);
    const Line line(form, {.X1 = 0, .Y1 = 2700, .X2 = 3000, .Y2 = 2700, .BorderColor = 0xFF});
    const Shape circle(form, {.At = {0, 0, 3000, 1500},
                              .Kind = ShapeKind::circle,
                              .Fill = FillStyle::solid,
                              .FillColor = colour::white});
    const Shape outline(form, {.At = {0, 1500, 1500, 750}, .BorderColor = 0x00FF0000});
    const Shape oval(form, {.At = {1500, 1500, 1500, 750},
                            .Kind = ShapeKind::oval,
                            .Fill = FillStyle::solid,
                            .FillColor = colour::white});
    show(form);
    const struct {
        const char* where = "";
        QPoint point;
        unsigned colour = 0;
    } cases[] = {
        {"inside the circle", {100, 50}, 0xFFFFFF},
        {"beside the circle", {30, 50}, 0x000000},
        {"upper edge of the rectangle", {50, 100}, 0x0000FF},
        {"lower right corner of the rectangle", {99, 149}, 0x0000FF},
        {"inside the rectangle", {50, 125}, 0x000000},
        {"left end of the oval", {105, 125}, 0xFFFFFF},
        {"corner of the oval", {103, 103}, 0x000000},
        {"on the line", {100, 180}, 0xFF0000},
        {"below the line", {100, 182}, 0x000000},
    };
    for (const auto& [where, point, colour] : cases)
        EXPECT_EQ(pixel(form, point.x(), point.y()), colour) << where;
}

TEST_F(DrawingTest, AnAutoSizeLabelHoldsItsWholeCaptionOnItsLines) {
    const struct {
        Font font;
        int pixel_size = 0;
        float lines = 2;
    } cases[] = {
        {{.Size = 8.25F}, 11},
        {{.Name = "Arial Black", .Size = 27.75F, .Italic = true}, 37},
        {{.Name = "Courier New", .Size = 14.25F, .Bold = true, .Italic = true}, 19},
        {{.Name = "Webdings", .Size = 12}, 16, 1},
    };
    for (const auto& [font, pixel_size, lines] : cases) {
        SCOPED_TRACE(font.Name);
        EXPECT_EQ(screen_font(font).pixelSize(), pixel_size);
        Form form(runtime, {.Client = {9000, 3000}, .BackColor = colour::black});
        Label label(form, {.At = {150, 150, 15, 15},
                           .Back = BackStyle::transparent,
                           .ForeColor = colour::white,
                           .Font = font,
                           .Sizing = LabelSizing::to_caption});
        label.Caption = std::string("4q3 of if");
        show(form);
        const QRect ink = lit_rectangle(pixels(form));
        EXPECT_GE(ink.left(), 9);
        EXPECT_GT(ink.width(), 1);
        EXPECT_LT(ink.right(), 10 + static_cast<int>(label.Width) / 15);

        const float height = label.Height;
        label.Caption = std::string("4q3\n4q3");
        EXPECT_NEAR(label.Height, lines * height, 30);
    }
}

TEST_F(DrawingTest, AWrappedCaptionBreaksAtLineFeedsAndInAWordThatIsTooLong) {
    Form form(runtime, black_form);
    Label label(form, {.At = {150, 150, 900, 15},
                       .Back = BackStyle::transparent,
                       .ForeColor = colour::white,
                       .Sizing = LabelSizing::downwards});
    show(form);
    label.Caption = std::string("i");
    let_loop_come_round();
    const int line = lit_rectangle(pixels(form)).height();
    for (const char* const caption : {"i\ni", "iiiiiiiiiiiiiiiiiiiiiiiiiiiiiiii"}) {
        label.Caption = std::string(caption);
        let_loop_come_round();
        const QRect ink = lit_rectangle(pixels(form));
        EXPECT_GE(ink.height(), 2 * line) << caption;
        EXPECT_LT(ink.right(), 70) << caption;
    }
}

TEST_F(DrawingTest, LettersThatHangOutOfTheirLabelAreShownWholeAndLeaveNothingBehind) {
    const Font font{.Name = "Arial Black", .Size = 27.75F, .Italic = true};
    const float width = measure_text("jay", font).Width;
    for (const Alignment alignment : {Alignment::left, Alignment::right}) {
        QRect ink;
        for (const LabelSizing sizing : {LabelSizing::as_designed, LabelSizing::to_caption}) {
            Form form(runtime, black_form);
            Label label(form, {.Caption = "jay",
                               .At = {600, 600, width, 900},
                               .Align = alignment,
                               .Back = BackStyle::transparent,
                               .ForeColor = colour::white,
                               .Font = font,
                               .Sizing = sizing});
            show(form);
            const QRect now = lit_rectangle(pixels(form));
            EXPECT_TRUE(now.left() < 38 || now.right() >= 40 + static_cast<int>(width) / 15);
            EXPECT_TRUE(ink.isNull() || now == ink) << "however the label wraps";
            ink = now;
            for (const char* const caption : {"abc", "jay"}) {
                label.Caption = std::string(caption);
                ASSERT_TRUE(comes_true([&] {
                    return lit_rectangle(on_screen(form)) == lit_rectangle(pixels(form));
                })) << caption;
            }
        }
    }
}

TEST_F(DrawingTest, AnArrowPointsItsWay) {
    for (const auto& [symbol, points_left] : {std::pair("3", true), std::pair("4", false)}) {
        Form form(runtime, black_form);
        const Label arrow(form, {.Caption = symbol,
                                 .At = {0, 0, 3000, 3000},
                                 .BackColor = colour::black,
                                 .ForeColor = colour::white,
                                 .Font = {.Name = "Webdings", .Size = 72}});
        show(form);
        QRect half = lit_rectangle(pixels(form));
        half.setWidth(half.width() / 2);
        const int left = count_of(Qt::white, pixels(form).copy(half));
        half.translate(half.width(), 0);
        EXPECT_EQ(left < count_of(Qt::white, pixels(form).copy(half)), points_left) << symbol;
    }
}

TEST_F(DrawingTest, AllTurnsOfATextOfFixedPitchAreOfOneWidth) {
    const Font font{.Name = "Courier New", .Bold = true};
    std::string text = "Loading...  ";
    const float width = measure_text(text, font).Width;
    for (std::size_t turn = 0; turn < text.size(); ++turn) {
        std::ranges::rotate(text, text.begin() + 1);
        EXPECT_EQ(measure_text(text, font).Width, width) << text;
    }
}

TEST_F(DrawingTest, ACaptionOnOneLineEndsInAnEllipsisWhereItsRoomDoes) {
    Form form(runtime, black_form);
    Label label(form, {.At = {150, 150, 15, 15},
                       .Back = BackStyle::transparent,
                       .ForeColor = colour::white,
                       .Font = {.Name = "Arial", .Size = 12},
                       .Sizing = LabelSizing::to_caption_on_one_line});
    label.Caption = std::string("one line");
    show(form);
    const QImage whole = pixels(form);
    label.Caption = std::string("one\nline");
    let_loop_come_round();
    EXPECT_TRUE(pixels(form) == whole);
    label.Room = 1500;
    label.Caption = std::string("one line that is longer than the room it has");
    let_loop_come_round();
    const QRect shortened = lit_rectangle(pixels(form));
    EXPECT_EQ(shortened.height(), lit_rectangle(whole).height());
    EXPECT_NEAR(shortened.right(), 110, 10);
}

TEST_F(DrawingTest, ALinkCanBeReadOnALightAndOnADarkGround) {
    Form form(runtime, {.Client = {3000, 1500}});
    const Label link(form, {.Caption = "Link",
                            .At = {150, 150, 2700, 1200},
                            .Back = BackStyle::transparent,
                            .ForeColor = 0x00800000,
                            .Font = {.Size = 24},
                            .Role = LabelRole::link});
    show(form);
    widget(link).clearFocus();
    const auto bluest_of = [&](const QColor& ground) {
        window(form).setPalette(QPalette(ground));
        const QImage image = pixels(form);
        QColor bluest = ground;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (const QColor each = image.pixelColor(x, y);
                    each.blue() - each.red() > bluest.blue() - bluest.red())
                    bluest = each;
        return bluest;
    };
    EXPECT_EQ(bluest_of(QColor(240, 240, 240)), QColor(0, 0, 128));
    EXPECT_GT(bluest_of(QColor(40, 40, 40)).lightness(), 150);
}

TEST_F(DrawingTest, ADarkTextIsSetOffByALightRimAndALightTextByADarkOne) {
    using Case = std::tuple<Colour, Colour, QColor>;
    for (const auto& [text, ground, rim] :
         {Case(colour::black, 0x00C00000, Qt::white), Case(colour::black, 0x00808080, Qt::white),
          Case(0x000000C0, 0x00202020, Qt::white), Case(colour::white, 0x0000C0C0, Qt::black),
          Case(0x0000FFFF, colour::white, Qt::black)}) {
        Form form(runtime, {.Client = {3000, 1500}, .BackColor = ground});
        const Label label(form, {.Caption = "Rim",
                                 .At = {150, 150, 2700, 1200},
                                 .Back = BackStyle::transparent,
                                 .ForeColor = text,
                                 .Font = {.Name = "Arial", .Size = 12, .Bold = true},
                                 .HasRim = true});
        show(form);
        EXPECT_GT(count_of(rim, pixels(form)), 60) << std::hex << text;
    }
}

TEST(ScreenDepth, IsThatOfWholePixels) {
    for (const auto& [colour_bits, pixel_bits] :
         {std::pair(8, 8), std::pair(15, 16), std::pair(16, 16), std::pair(24, 32),
          std::pair(30, 32), std::pair(32, 32)})
        EXPECT_EQ(bits_per_pixel(colour_bits), pixel_bits);
}

} // namespace
} // namespace lookfar::desktop
