#include "safety/ui/drive_views.h"

#include <QFileSystemModel>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include "safety/backup_drives.h"

namespace ostravel {

DriveList::DriveList(QWidget* parent) : QComboBox(parent) {
    connect(this, &QComboBox::activated, this, [this](int index) { Q_EMIT driveChosen(itemText(index)); });
}

void DriveList::showDrive(const QString& drive) {
    const QSignalBlocker blocker(this);
    QStringList drives = driveList();
    if (!drives.contains(drive))
        drives << drive;
    QStringList shown;
    for (int i = 0; i < count(); ++i) shown << itemText(i);
    if (shown != drives) {
        clear();
        addItems(drives);
    }
    setCurrentIndex(findText(drive));
}

FolderTree::FolderTree(QWidget* parent) : QTreeView(parent), m_model(new QFileSystemModel(this)) {
    m_model->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    m_model->setReadOnly(true);
    setModel(m_model);
    for (int column = 1; column < m_model->columnCount(); ++column) hideColumn(column);
    setHeaderHidden(true);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
        if (!m_mirroring && current.isValid())
            Q_EMIT folderChosen(m_model->filePath(current));
    });
    // The model reads folders in the background: the folder shown is brought into view once
    // its parent's entries are there.
    connect(m_model, &QFileSystemModel::directoryLoaded, this, [this](const QString& loaded) {
        const QModelIndex current = currentIndex();
        if (current.isValid() && m_model->filePath(current.parent()) == loaded)
            scrollTo(current, QAbstractItemView::PositionAtCenter);
    });
}

void FolderTree::showFolder(const QString& drive, const QString& folder) {
    const QScopedValueRollback<bool> mirroring(m_mirroring, true);
    if (drive != m_drive) {
        m_model->setRootPath(drive);
        setRootIndex(m_model->index(drive));
        m_drive = drive;
    }
    const QModelIndex index = m_model->index(folder);
    if (index.isValid() && index != rootIndex() && index != currentIndex()) {
        setCurrentIndex(index);
        expand(index);
        scrollTo(index, QAbstractItemView::PositionAtCenter);
    }
}

FileList::FileList(QWidget* parent) : QListView(parent), m_model(new QFileSystemModel(this)) {
    m_model->setFilter(QDir::Files | QDir::Hidden);
    m_model->setReadOnly(true);
    setModel(m_model);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
        if (!m_mirroring && current.isValid())
            Q_EMIT fileChosen(m_model->fileName(current));
    });
}

void FileList::showFolder(const QString& folder) {
    if (folder == m_folder)
        return;
    const QScopedValueRollback<bool> mirroring(m_mirroring, true);
    m_model->setRootPath(folder);
    setRootIndex(m_model->index(folder));
    m_folder = folder;
}

}  // namespace ostravel
