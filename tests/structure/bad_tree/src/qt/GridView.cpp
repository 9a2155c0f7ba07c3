#include <QPainter>
#include <QtGui/QPainter>
#include <QtNetwork/QTcpSocket>          // BAD: a module of Qt that the layer does not have
#include <QtWidgets/private/qwidget_p.h>  // BAD: private
#include <private/qwidget_p.h>            // BAD: private
#include "GridView.moc"
#include "chart/ChartData.h"
