#include "acquisition/main_window.h"

#include "acquisition/picture_file.h"
#include "program.h"
#include "splash/about_window.h"

namespace lookfar {

MainWindow::MainWindow(Program& program)
    : Form(program.runtime, {.Caption = "Lookfar", .Client = {4935, 5190}, .IsMainWindow = true}),
      Form2(program.Form2),
      Form3(program.Form3),
      Form4(program.Form4),
      Loading(program.Loading),
      About(program.About) {
    Load.connect(this, &MainWindow::Form_Load);
    QueryUnload.connect(this, &MainWindow::Form_QueryUnload);
    Unload.connect(this, &MainWindow::Form_Unload);

    Timer1.Tick.connect(this, &MainWindow::Timer1_Timer);
    Command2.Click.connect(this, &MainWindow::Command2_Click);
    ImgReload.Click.connect(this, &MainWindow::ImgReload_Click);
    ReloadKey.connect(this, &MainWindow::Command2_Click);

    Check1.Click.connect(this, &MainWindow::Check1_Click);
    Timer2.Tick.connect(this, &MainWindow::Timer2_Timer);
    Combo1.Click.connect(this, &MainWindow::Combo1_Click);
    Command1.Click.connect(this, &MainWindow::Command1_Click);

    Text1.Change.connect(this, &MainWindow::Text1_Change);
    Text1.KeyDown.connect(this, &MainWindow::Text1_KeyDown);
    Text1.GotFocus.connect(this, &MainWindow::Text1_GotFocus);
    Text2.Change.connect(this, &MainWindow::Text2_Change);
    Text2.KeyDown.connect(this, &MainWindow::Text2_KeyDown);
    UpDown1.Change.connect(this, &MainWindow::UpDown1_Change);

    Check2.Click.connect(this, &MainWindow::Check2_Click);

    Image2.Click.connect(this, &MainWindow::Image2_Click);
    LKF_About.Click.connect(this, &MainWindow::LKF_About_Click);

    Resize.connect(this, &MainWindow::Form_Resize);
    ScreenChange.connect(this, &MainWindow::Form_ScreenChange);
    ImagNT1.DblClick.connect(this, &MainWindow::ImagNT1_DblClick);
    Label4.DblClick.connect(this, &MainWindow::Label4_DblClick);
    GoToFull.Click.connect(this, &MainWindow::GoToFull_Click);
    ImagNT1.MouseDown.connect(this, &MainWindow::ImagNT1_MouseDown);
    Label4.MouseDown.connect(this, &MainWindow::Label4_MouseDown);
    MenuKey.connect(this, &MainWindow::Form_MenuKey);

    CopyKey.connect(this, &MainWindow::Form_CopyKey);
    ImagNT1.DragOut.connect(this, &MainWindow::ImagNT1_DragOut);
    Label4.DragOut.connect(this, &MainWindow::ImagNT1_DragOut);
    AddressGiven.connect(this, &MainWindow::Form_AddressGiven);
}

void MainWindow::Image2_Click() {
    About->Show();
}

void MainWindow::LKF_About_Click() {
    Image2_Click();
}

void MainWindow::Form_QueryUnload(short& Cancel, short /*UnloadMode*/) {
    Cancel = -1;
    attempt([this] {
        runtime.files().Kill(picture_path(runtime));
        Visible = false;
        Hide();
    });
    runtime.End();
}

void MainWindow::Form_Unload() {
    Inet1.Cancel();
}

} // namespace lookfar
