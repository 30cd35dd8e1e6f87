#include "providers/ReplyTimeout.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>

void keepTimeoutBehindRedirects(QNetworkReply *reply)
{
    const int timeoutMs = reply->manager()->transferTimeout();
    if (timeoutMs <= 0) {
        return;
    }
    auto *timer = new QTimer(reply);
    timer->setSingleShot(true);
    timer->setInterval(timeoutMs);
    QObject::connect(timer, &QTimer::timeout, reply, &QNetworkReply::abort);
    QObject::connect(reply, &QNetworkReply::redirected, timer, qOverload<>(&QTimer::start));
    QObject::connect(reply, &QNetworkReply::finished, timer, &QTimer::stop);
    const auto restart = [timer] {
        if (timer->isActive()) {
            timer->start();
        }
    };
    QObject::connect(reply, &QNetworkReply::metaDataChanged, timer, restart);
    QObject::connect(reply, &QNetworkReply::readyRead, timer, restart);
}
