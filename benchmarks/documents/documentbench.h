// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#ifndef BENCHMARKS_DOCUMENTS_DOCUMENTBENCH_H
#define BENCHMARKS_DOCUMENTS_DOCUMENTBENCH_H

#include <QVector>
#include <QWidget>

#include <functional>
#include <memory>

class QMainWindow;
class QStackedWidget;

namespace Utils {
class MdiArea;
}

/// CPU time of this thread.
[[nodiscard]] double cpuMilliseconds();
/// Bytes in use on the heap.
[[nodiscard]] double heapBytes();
[[nodiscard]] double median(QVector<double> values);
/// Gives the heap more memory than the documents will need. On a virtual machine
/// the first use of a page may cost a hundred times that of the next, which
/// would be counted as the growth of whatever runs late.
void warmMemory();
/// Lets everything posted happen, painting included.
void settle();

/// A page or an editor's view with a few controls, as plain Qt has them.
[[nodiscard]] QWidget *makePage(int number);
/// A KTextEditor view of a document of its own; the document dies with the view.
[[nodiscard]] QWidget *makeEditor(int number);

/// A shown window whose middle holds documents.
class Host
{
public:
    virtual ~Host();
    Host(const Host &) = delete;
    Host &operator=(const Host &) = delete;
    /// Shows @p document as the current one.
    virtual void open(QWidget *document, int number) = 0;
    virtual void closeCurrent() = 0;

protected:
    Host();
    void show(QWidget *middle);

private:
    std::unique_ptr<QMainWindow> m_window;
};

class AreaHost final : public Host
{
public:
    AreaHost();
    void open(QWidget *document, int number) override;
    void closeCurrent() override;

private:
    Utils::MdiArea *m_area;
};

class StackHost final : public Host
{
public:
    StackHost();
    void open(QWidget *document, int number) override;
    void closeCurrent() override;

private:
    QStackedWidget *m_stack;
};

/// The milliseconds that opening each of @p count documents took, without their
/// making.
[[nodiscard]] QVector<double> openMany(Host &host, QWidget *(*make)(int), int count);

#endif // BENCHMARKS_DOCUMENTS_DOCUMENTBENCH_H
