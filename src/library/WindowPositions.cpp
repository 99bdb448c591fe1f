#include "library/WindowPositions.h"

#include "library/Registry.h"
#include "library/Units.h"
#include "library/ValueRules.h"

#include <QEvent>
#include <QStringList>
#include <QWidget>
#include <QWindow>
#include <cmath>
#include <optional>

namespace bravcpl5 {

namespace {

// No window is wider or taller than a window system can address (X11's 16-bit signed
// coordinates); a record asking for more was not written by a form and would only make
// the form allocate a surface of that size.
constexpr int maxWindowPixels = 32767;

int toPixels(qint32 twips, int dpi) { return int(std::lround(twips * double(dpi) / TwipsPerInch)); }
qint64 toTwips(int pixels, int dpi) { return std::llround(pixels * TwipsPerInch / double(dpi)); }

// The form's frame as the platform has it now. QWidget keeps its own copy of the frame's
// margins, refreshed only when the window moves or resizes, and under X11 the margins often
// arrive after the last of those; the native window asks the platform.
QRect frameOf(const QWidget *form)
{
    const QWindow *window = form->windowHandle();
    return window ? window->frameGeometry() : form->frameGeometry();
}

// Whether the window manager's frame around the shown form is known. It is not before the
// manager has framed it, nor ever without one (offscreen draws one, a bare X server does not);
// and while it frames it, the platform may for a moment hold margins that make no frame or a
// client area the form has not heard of yet.
bool framed(const QWidget *form)
{
    const QWindow *window = form->windowHandle();
    if (!window)
        return false;
    const QMargins margins = window->frameMargins();
    return !margins.isNull() && margins.left() >= 0 && margins.top() >= 0 && margins.right() >= 0
           && margins.bottom() >= 0 && window->geometry() == form->geometry();
}

// What a record asks of a form's frame, in pixels; a missing value leaves that side as it is.
struct FrameRequest {
    std::optional<int> top, left, width, height;
};

// Puts the frame at the asked place with the asked size, as far as the frame is known.
// Before the native window exists QWidget::move() takes the frame's position and the window
// manager places the frame there. Once framed, the client area is placed inside the frame by
// the platform's margins, since neither QWidget::move() (with its own copy of the margins) nor
// QWindow::setFramePosition() (under X11) can be trusted with the frame then.
void applyFrame(QWidget *form, const FrameRequest &request)
{
    if (!framed(form)) {
        if (request.top || request.left)
            form->move(request.left.value_or(form->x()), request.top.value_or(form->y()));
        if (request.width || request.height)
            form->resize(request.width.value_or(form->width()),
                         request.height.value_or(form->height()));
        return;
    }
    const QRect frame = frameOf(form);
    const QRect asked(request.left.value_or(frame.x()), request.top.value_or(frame.y()),
                      request.width.value_or(frame.width()),
                      request.height.value_or(frame.height()));
    form->setGeometry(asked - form->windowHandle()->frameMargins());
}

// A form restored before it is shown learns its frame only once the window manager has
// framed it. This applies the request again then: the client size becomes the one that gives
// the stored frame size, and a frame that the window manager placed elsewhere (some keep new
// windows on the screen) goes where the record says. It looks when the form moves or resizes
// and, since the frame may become known without either, every few milliseconds for a while
// after it is shown. It goes when it has done so, when it gives up (no window manager), or
// when the form is hidden first.
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
        switch (event->type()) {
        case QEvent::Hide:
            finish();
            break;
        case QEvent::Show:
            if (!m_timer)
                m_timer = startTimer(LookEveryMs);
            look();
            break;
        case QEvent::Move:
        case QEvent::Resize:
            look();
            break;
        default:
            break;
        }
        return false;
    }

protected:
    void timerEvent(QTimerEvent *) override
    {
        if (++m_looks * LookEveryMs >= GiveUpAfterMs)
            finish();
        else
            look();
    }

private:
    static constexpr int LookEveryMs = 20;
    static constexpr int GiveUpAfterMs = 3000;

    void look()
    {
        if (m_done || !framed(m_form))
            return;
        finish();
        applyFrame(m_form, m_request);
    }

    void finish()
    {
        m_done = true;
        m_form->removeEventFilter(this);
        if (m_timer)
            killTimer(m_timer);
        m_timer = 0;
        deleteLater();
    }

    QWidget *m_form;
    FrameRequest m_request;
    int m_timer = 0;
    int m_looks = 0;
    bool m_done = false;
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
        const int pixels = toPixels(*twips, dpis[i]);
        if (i >= 2 && (pixels < 0 || pixels > maxWindowPixels)) // width or height
            break; // a size the form refuses, as it refuses text
        *targets[i] = pixels;
    }
    if (!request.top)
        return;
    // Not framed yet (or never, without a window manager): the keeper finishes once it is.
    if (!framed(form))
        new FrameKeeper(form, request);
    applyFrame(form, request);
}

void SaveWindowPosition(const QString &name, QWidget *form)
{
    if (!form)
        return;
    const int dpiX = form->logicalDpiX();
    const int dpiY = form->logicalDpiY();
    const QRect frame = frameOf(form);
    const QString record = QStringLiteral("%1,%2,%3,%4")
                               .arg(toTwips(frame.y(), dpiY))
                               .arg(toTwips(frame.x(), dpiX))
                               .arg(toTwips(frame.width(), dpiX))
                               .arg(toTwips(frame.height(), dpiY));
    SetRegValue(HKEY_CURRENT_USER_HANDLE, QString::fromLatin1(WindowPositionsKey), name, record);
}

} // namespace bravcpl5
