#include "desktop/desktop_fixture.h"

#include "desktop/style/fonts.h"
#include "runtime/controls/images.h"
#include "runtime/controls/label.h"
#include "runtime/controls/shapes.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace lookfar::desktop {
namespace {

const FormDesign black_form{.Client = {3000, 3000}, .BackColor = colour::black};

class DrawingTest : public DesktopTest {};

/// Back to front: a red picture, a tint over its right half, a green rectangle over its lower
/// half, a label in the corner of them all.
class LayersForm : public Form {
  public:
    explicit LayersForm(Runtime& host)
        : Form(host, {.Client = {3000, 3000}, .BackColor = colour::black}) {
        Image1.Picture = plain_picture(20, 20, 0xC0, 0x10, 0x20);
    }

    Label Label1{*this, {.At = {2250, 2250, 600, 600}, .BackColor = 0x00FF8000}};
    Shape Shape1{*this,
                 {.At = {0, 1500, 3000, 1350},
                  .Border = BorderStyle::transparent,
                  .Fill = FillStyle::solid,
                  .FillColor = 0x0000FF00}};
    Shape Tint{*this,
               {.At = {1500, 0, 1500, 3000},
                .DrawMode = DrawMode::merge_pen,
                .Border = BorderStyle::transparent,
                .Fill = FillStyle::solid,
                .FillColor = 0x00400F0F}};
    Image Image1{*this, {.At = {0, 0, 3000, 3000}, .Stretch = true}};
};

TEST_F(DrawingTest, ControlsAreDrawnBackToFrontAndTintsMergeBitByBit) {
    LayersForm form(runtime);
    show(form);
    EXPECT_EQ(pixel(form, 50, 50), 0xC01020U);
    EXPECT_EQ(pixel(form, 150, 50), 0xC01020U | 0x0F0F40U);
    EXPECT_EQ(pixel(form, 50, 150), 0x00FF00U);
    EXPECT_EQ(pixel(form, 150, 130), 0x00FF00U);
    EXPECT_EQ(pixel(form, 170, 170), 0x0080FFU);
    EXPECT_EQ(pixel(form, 150, 195), 0xC01020U | 0x0F0F40U);
    form.Tint.Visible = false;
    form.Image1.Visible = false;
    settle();
    EXPECT_EQ(pixel(form, 150, 50), 0x000000U);
}

TEST_F(DrawingTest, APictureIsScaledOnceUntilItsBytesOrItsSizeChange) {
    LayersForm form(runtime);
    show(form);
    const ScaledPictures& pictures = window(form).drawn().pictures();
    const int first = pictures.prepared();
    EXPECT_GE(first, 1);
    form.Label1.BackColor = colour::white;
    settle();
    pixels(form);
    EXPECT_EQ(pictures.prepared(), first);

    const auto picture = form.Image1.Picture.get();
    std::ranges::fill(picture->edit(), std::uint8_t{0x55});
    form.Label1.BackColor = colour::black;
    ASSERT_TRUE(comes_true([&] { return pictures.prepared() == first + 1; }));
    EXPECT_EQ(pixel(form, 50, 50), 0x555555U);

    form.Image1.Width = 1500;
    ASSERT_TRUE(comes_true([&] { return pictures.prepared() == first + 2; }));
    EXPECT_EQ(pixel(form, 150, 20), 0x0F0F40U);

    form.Hide();
    std::ranges::fill(picture->edit(), std::uint8_t{0x66});
    form.Image1.Width = 900;
    settle();
    EXPECT_EQ(pictures.prepared(), first + 2);
}

TEST_F(DrawingTest, TransparentPixelsLetWhatLiesBehindShineThrough) {
    class ImageForm : public Form {
      public:
        explicit ImageForm(Runtime& host) : Form(host, black_form) {}
        Image Image1{*this, {.At = {150, 150, 1, 1}}};
    } form(runtime);
    auto opaque = plain_picture(2, 1, 0xFF, 0, 0);
    Pixels half{.width = 2,
                .height = 1,
                .stride = stride_of(2),
                .bytes = std::make_shared<std::uint8_t[]>(8),
                .opacity = std::make_shared<std::uint8_t[]>(2)};
    std::ranges::copy(opaque->bytes(), half.bytes.get());
    half.opacity[1] = 0xFF;
    form.Image1.Picture = std::make_shared<Picture>(half);
    show(form);
    EXPECT_EQ(pixel(form, 10, 10), 0x000000U);
    EXPECT_EQ(pixel(form, 11, 10), 0xFF0000U);
}

TEST_F(DrawingTest, ShapesFillTheirForms) {
    class ShapesForm : public Form {
      public:
        explicit ShapesForm(Runtime& host) : Form(host, black_form) {}
        Line Line1{*this, {.X1 = 0, .Y1 = 2700, .X2 = 3000, .Y2 = 2700, .BorderColor = 0xFF}};
        Shape Circle{*this,
                     {.At = {0, 0, 3000, 1500},
                      .Kind = ShapeKind::circle,
                      .Fill = FillStyle::solid,
                      .FillColor = colour::white}};
        Shape Outline{*this, {.At = {0, 1500, 1500, 750}, .BorderColor = 0x00FF0000}};
        Shape Oval{*this,
                   {.At = {1500, 1500, 1500, 750},
                    .Kind = ShapeKind::oval,
                    .Fill = FillStyle::solid,
                    .FillColor = colour::white}};
    } form(runtime);
    show(form);
    const QImage image = pixels(form);
    const auto at = [&](int x, int y) { return image.pixel(x, y) & 0xFFFFFFU; };
    EXPECT_EQ(at(100, 50), 0xFFFFFFU) << "inside the circle";
    EXPECT_EQ(at(30, 50), 0x000000U) << "beside the circle";
    EXPECT_EQ(at(50, 100), 0x0000FFU) << "upper edge of the rectangle";
    EXPECT_EQ(at(99, 149), 0x0000FFU) << "lower right corner of the rectangle";
    EXPECT_EQ(at(50, 125), 0x000000U) << "inside the rectangle";
    EXPECT_EQ(at(105, 125), 0xFFFFFFU) << "left end of the oval";
    EXPECT_EQ(at(103, 103), 0x000000U) << "corner of the oval";
    EXPECT_EQ(at(100, 180), 0xFF0000U) << "on the line";
    EXPECT_EQ(at(100, 182), 0x000000U) << "below the line";
}

/// The columns from first to last that hold a pixel other than black; an empty pair for none.
std::pair<int, int> inked_columns(const QImage& image) {
    std::pair<int, int> columns{image.width(), -1};
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if ((image.pixel(x, y) & 0xFFFFFFU) != 0)
                columns = {std::min(columns.first, x), x};
    return columns;
}

TEST_F(DrawingTest, AnAutoSizeLabelHoldsItsWholeCaptionOnItsLines) {
    class LabelForm : public Form {
      public:
        LabelForm(Runtime& host, const Font& font)
            : Form(host, {.Client = {9000, 3000}, .BackColor = colour::black}),
              Label1(*this, {.At = {150, 150, 15, 15},
                             .Back = BackStyle::transparent,
                             .ForeColor = colour::white,
                             .Font = font,
                             .Sizing = LabelSizing::to_caption}) {}
        Label Label1;
    };
    const std::array fonts{
        Font{},
        Font{.Name = "Arial Black", .Size = 27.75F, .Italic = true},
        Font{.Name = "Courier New", .Size = 14.25F, .Bold = true, .Italic = true},
        Font{.Name = "Webdings", .Size = 12},
    };
    for (const Font& font : fonts) {
        LabelForm form(runtime, font);
        form.Label1.Caption = std::string("4q3 of if");
        show(form);
        const auto [first, last] = inked_columns(pixels(form));
        const int right_edge = 10 + static_cast<int>(form.Label1.Width) / 15;
        EXPECT_GE(first, 9) << font.Name;
        EXPECT_GT(last, first) << font.Name;
        EXPECT_LE(last, right_edge) << font.Name;

        const float height = form.Label1.Height;
        form.Label1.Caption = std::string("4q3\n4q3");
        const float lines = is_symbol_font(font) ? 1 : 2;
        EXPECT_NEAR(form.Label1.Height, lines * height, 30) << font.Name;
    }
}

TEST_F(DrawingTest, ScreenAndFontsAreMeasuredInTwips) {
    const ScreenMetrics screen = platform.screen();
    EXPECT_EQ(screen.size.Width,
              static_cast<float>(QApplication::primaryScreen()->size().width() * 15));
    EXPECT_TRUE(screen.bits_per_pixel == 32 || screen.bits_per_pixel == 16);
    EXPECT_EQ(screen_font({.Size = 8.25F}).pixelSize(), 11);
    EXPECT_EQ(screen_font({.Size = 20.25F}).pixelSize(), 27);
}

} // namespace
} // namespace lookfar::desktop
