// How quickly the page setup dialog comes up, beside Qt's own page setup dialog on the
// same printer, and how long one redraw of its three previews takes. The dialogs run
// offscreen against the sandboxed cupsd (scripts/cups-sandbox; CUPS_SERVER set): its label
// printer, and a printer with 40 paper sizes and 8 bins that this program adds itself.

#include "forms/PageSetupPicture.h"
#include "forms/frmPageSetup.h"
#include "library/Library.h"
#include "library/Registry.h"
#include "printing/PrinterConfigurations.h"
#include "support/SandboxCups.h"
#include "support/TestHost.h"

#include "Painting.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QPageSetupDialog>
#include <QPrinter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

using namespace bravcpl5;

const QString manySizesPrinter = QStringLiteral("Bench-40-Sizes");

// A PPD with 40 paper sizes (the first ten standard, the rest labels) and 8 input slots.
QByteArray manySizesPpd()
{
    QByteArray ppd =
        "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
        "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n*PCFileName: \"BENCH.PPD\"\n"
        "*Manufacturer: \"Test\"\n*Product: \"(Bench)\"\n*ModelName: \"Bench\"\n"
        "*ShortNickName: \"Bench\"\n*NickName: \"Bench\"\n*PSVersion: \"(3010.000) 0\"\n"
        "*LanguageLevel: \"3\"\n*ColorDevice: False\n*DefaultColorSpace: Gray\n"
        "*cupsFilter2: \"application/pdf application/pdf 0 gziptoany\"\n";
    struct Size {
        QByteArray keyword, name;
        int width, height;
    };
    QList<Size> sizes = {{"Letter", "Letter", 612, 792},
                         {"Legal", "Legal", 612, 1008},
                         {"A4", "A4", 595, 842},
                         {"A5", "A5", 420, 595},
                         {"A3", "A3", 842, 1191},
                         {"B5", "B5", 516, 729},
                         {"Executive", "Executive", 522, 756},
                         {"Tabloid", "Tabloid", 792, 1224},
                         {"Env10", "Envelope #10", 297, 684},
                         {"EnvDL", "Envelope DL", 312, 624}};
    for (int i = 0; sizes.size() < 40; ++i) {
        const int width = 72 + 18 * (i % 10), height = 36 + 27 * (i / 10);
        sizes.append(
            {"Label" + QByteArray::number(i), "Label " + QByteArray::number(i + 1), width, height});
    }
    ppd += "*OpenUI *PageSize/Media Size: PickOne\n*DefaultPageSize: Letter\n";
    for (const Size &s : sizes)
        ppd += "*PageSize " + s.keyword + "/" + s.name + ": \"<</PageSize["
               + QByteArray::number(s.width) + " " + QByteArray::number(s.height)
               + "]>>setpagedevice\"\n";
    ppd += "*CloseUI: *PageSize\n*OpenUI *PageRegion/Media Size: PickOne\n*DefaultPageRegion: "
           "Letter\n";
    for (const Size &s : sizes)
        ppd += "*PageRegion " + s.keyword + "/" + s.name + ": \"<</PageSize["
               + QByteArray::number(s.width) + " " + QByteArray::number(s.height)
               + "]>>setpagedevice\"\n";
    ppd += "*CloseUI: *PageRegion\n*DefaultImageableArea: Letter\n*DefaultPaperDimension: Letter\n";
    for (const Size &s : sizes) {
        const QByteArray dims = QByteArray::number(s.width) + " " + QByteArray::number(s.height);
        ppd += "*ImageableArea " + s.keyword + "/" + s.name + ": \"0 0 " + dims + "\"\n";
        ppd += "*PaperDimension " + s.keyword + "/" + s.name + ": \"" + dims + "\"\n";
    }
    ppd += "*OpenUI *InputSlot/Paper Source: PickOne\n*DefaultInputSlot: Tray1\n";
    const char *const sources[] = {"Tray1/Tray 1",       "Tray2/Tray 2",
                                   "Tray3/Tray 3",       "Tray4/Tray 4",
                                   "Manual/Manual Feed", "Envelope/Envelope Feeder",
                                   "LCT/Large Capacity", "Auto/Automatically Select"};
    for (int i = 0; i < 8; ++i)
        ppd += QByteArray("*InputSlot ") + sources[i] + ": \"<</MediaPosition "
               + QByteArray::number(i) + ">>setpagedevice\"\n";
    return ppd
           + "*CloseUI: *InputSlot\n*DefaultFont: Courier\n*Font Courier: Standard \"(1.05)\" "
             "Standard ROM\n";
}

bool addManySizesPrinter()
{
    QTemporaryDir folder;
    const QString ppd = folder.filePath(QStringLiteral("bench.ppd"));
    QFile file(ppd);
    if (!file.open(QIODevice::WriteOnly) || file.write(manySizesPpd()) < 0)
        return false;
    file.close();
    return QProcess::execute(QStringLiteral("lpadmin"),
                             {QStringLiteral("-p"), manySizesPrinter, QStringLiteral("-E"),
                              QStringLiteral("-v"), QStringLiteral("file:///dev/null"),
                              QStringLiteral("-P"), ppd})
           == 0;
}

void untilPainted(QWidget &window, QWidget *watched)
{
    PaintCounter counter;
    watched->installEventFilter(&counter);
    window.show();
    runUntil([&]() { return counter.paints > 0; });
    watched->removeEventFilter(&counter);
}

// A library over a test host with one configuration to set up.
struct Setting {
    Setting()
    {
        SetRegistryFile(QDir(host.root()).filePath(QStringLiteral("registry.ini")));
        library.Initialize(&host);
        host.writeSystemFile(QStringLiteral("Bench.pcx"),
                             "<PrinterConfiguration><PageSetup><PaperSize>1</PaperSize></PageSetup>"
                             "</PrinterConfiguration>");
    }
    ~Setting() { library.PreTerminate(); }

    test::TestHost host;
    Library library;
};

QString printerOf(const benchmark::State &state)
{
    return state.range(0) == 0 ? QStringLiteral("Label-Printer") : manySizesPrinter;
}

void BM_OpenPageSetup(benchmark::State &state)
{
    Setting setting;
    const QString printer = printerOf(state);
    for (auto _ : state) {
        frmPageSetup form;
        if (!form.Open(QStringLiteral("Bench"), printer, setting.library.printerConfigurations())) {
            state.SkipWithError("the dialog refused to open");
            break;
        }
        untilPainted(form, form.findChild<PageSetupPicture *>(QStringLiteral("picPreview1")));
        state.PauseTiming();
        form.close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenPageSetup)->Arg(0)->Arg(40)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_OpenQtPageSetupDialog(benchmark::State &state)
{
    const QString printerName = printerOf(state);
    for (auto _ : state) {
        QPrinter printer;
        printer.setPrinterName(printerName);
        QPageSetupDialog dialog(&printer);
        untilPainted(dialog, &dialog);
        state.PauseTiming();
        dialog.close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenQtPageSetupDialog)->Arg(0)->Arg(40)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_RedrawPreviews(benchmark::State &state)
{
    Setting setting;
    frmPageSetup form;
    form.Open(QStringLiteral("Bench"), QStringLiteral("Label-Printer"),
              setting.library.printerConfigurations());
    untilPainted(form, form.findChild<PageSetupPicture *>(QStringLiteral("picPreview1")));
    auto *margin = form.findChild<QLineEdit *>(QStringLiteral("txtTopMargin"));
    const QList<PageSetupPicture *> pictures = form.findChildren<PageSetupPicture *>();
    QImage image(pictures.first()->size() * form.devicePixelRatio(),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(form.devicePixelRatio());
    int step = 0;
    for (auto _ : state) {
        // What a held spinner does: a new value, and all three pictures drawn again.
        margin->setText(QString::number(0.5 + 0.1 * (++step % 10)));
        for (PageSetupPicture *picture : pictures)
            picture->render(&image);
    }
}
BENCHMARK(BM_RedrawPreviews)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QApplication app(argc, argv);
    if (!bravcpl5::test::CupsReachable() || !addManySizesPrinter()) {
        fprintf(stderr, "bench_pagesetup needs the sandboxed cupsd (scripts/cups-sandbox start "
                        "build/cups-sandbox; "
                        "eval \"$(scripts/cups-sandbox env build/cups-sandbox)\")\n");
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
