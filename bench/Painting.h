#pragma once

// What the dialog benchmarks wait for: a widget's first paint, with the events processed
// meanwhile, for ten seconds at most.

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QObject>

// Counts the paints of a widget.
class PaintCounter : public QObject
{
public:
    int paints = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return false;
    }
};

template <typename Done> void runUntil(Done done)
{
    QElapsedTimer clock;
    clock.start();
    while (!done() && clock.elapsed() < 10000)
        QApplication::processEvents(QEventLoop::AllEvents, 1);
}
