#include "library/WindowPositions.h"

#include "library/Registry.h"
#include "library/Units.h"
#include "library/ValueRules.h"

#include <QEvent>
#include <QStringList>
#include <QWidget>
#include <cmath>
#include <optional>

namespace bravcpl5 {

namespace {

int toPixels(qint32 twips, int dpi) { return int(std::lround(twips * double(dpi) / TwipsPerInch)); }
qint64 toTwips(int pixels, int dpi) { return std::llround(pixels * TwipsPerInch / double(dpi)); }

// What the window manager's frame adds to the client area: nothing until it has framed the
// shown window, and nothing at all without one (offscreen, or a bare X server).
QSize frameAddition(const QWidget *form) { return form->frameGeometry().size() - form->size(); }

// What a record asks of a form's frame, in pixels; a missing value leaves that side as it is.
struct FrameRequest {
    std::optional<int> top, left, width, height;
};

// Moves the frame (QWidget::move() takes a window's frame position) and sets the client size
// that gives the frame the asked size, as far as the frame is known.
void applyFrame(QWidget *form, const FrameRequest &request)
{
    if (request.top || request.left)
        form->move(request.left.value_or(form->x()), request.top.value_or(form->y()));
    const QSize addition = frameAddition(form);
    if (request.width || request.height)
        form->resize(request.width ? *request.width - addition.width() : form->width(),
                     request.height ? *request.height - addition.height() : form->height());
}

// A form restored before it is shown learns its frame only once the window manager has
// framed it. This applies the request again then: the client size becomes the one that gives
// the stored frame size, and a frame that the window manager placed elsewhere (some keep new
// windows on the screen) goes where the record says. It goes when it has done so, or when
// the form is hidden first.
class FrameKeeper : public QObject
{
public:
    static constexpr QLatin1StringView keeperName{"bravcpl5_FrameKeeper"};

    FrameKeeper(QWidget *form, const FrameRequest &request)
        : QObject(form), m_form(form), m_request(request)
    {
        // A later restore replaces an earlier one's request.
        delete form->findChild<QObject *>(keeperName, Qt::FindDirectChildrenOnly);
        setObjectName(keeperName);
        form->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched != m_form)
            return false;
        if (event->type() == QEvent::Hide) {
            finish();
        } else if (event->type() == QEvent::Move || event->type() == QEvent::Resize
                   || event->type() == QEvent::Show) {
            if (!frameAddition(m_form).isNull()) {
                finish();
                applyFrame(m_form, m_request);
            }
        }
        return false;
    }

private:
    void finish()
    {
        m_form->removeEventFilter(this);
        deleteLater();
    }

    QWidget *m_form;
    FrameRequest m_request;
};

} // namespace

// The record is the frame's, as a window's Top, Left, Width and Height are.
void RestoreWindowPosition(const QString &name, QWidget *form, bool restoreSize)
{
    if (!form)
        return;
    const QString record = GetRegValue(HKEY_CURRENT_USER_HANDLE,
                                       QString::fromLatin1(WindowPositionsKey), name, QString());
    if (record.isEmpty())
        return;
    const QStringList fields = record.split(QLatin1Char(','));
    if (fields.size() != 4)
        return;
    // The fields apply in order, up to the first that is not a number.
    FrameRequest request;
    std::optional<int> *targets[] = {&request.top, &request.left, &request.width, &request.height};
    const int dpis[] = {form->logicalDpiY(), form->logicalDpiX(), form->logicalDpiX(),
                        form->logicalDpiY()};
    for (int i = 0; i < (restoreSize ? 4 : 2); ++i) {
        const std::optional<qint32> twips = values::textToInt32(fields[i]);
        if (!twips)
            break;
        *targets[i] = toPixels(*twips, dpis[i]);
    }
    if (!request.top)
        return;
    // Not framed yet (or never, without a window manager): the keeper finishes once it is.
    if (frameAddition(form).isNull())
        new FrameKeeper(form, request);
    applyFrame(form, request);
}

void SaveWindowPosition(const QString &name, QWidget *form)
{
    if (!form)
        return;
    const int dpiX = form->logicalDpiX();
    const int dpiY = form->logicalDpiY();
    const QRect frame = form->frameGeometry();
    const QString record = QStringLiteral("%1,%2,%3,%4")
                               .arg(toTwips(frame.y(), dpiY))
                               .arg(toTwips(frame.x(), dpiX))
                               .arg(toTwips(frame.width(), dpiX))
                               .arg(toTwips(frame.height(), dpiY));
    SetRegValue(HKEY_CURRENT_USER_HANDLE, QString::fromLatin1(WindowPositionsKey), name, record);
}

} // namespace bravcpl5
