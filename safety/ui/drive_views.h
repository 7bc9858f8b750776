// Drive1, Dir1 and File1 of the backup and restore screens: the drives in a combo box, a
// drive's folders as a tree and a folder's files as a list, over the file system model. Each
// shows what the screen's state says and tells only of the user's own choices.
#pragma once

#include <QComboBox>
#include <QListView>
#include <QTreeView>

class QFileSystemModel;

namespace ostravel {

class DriveList : public QComboBox {
    Q_OBJECT
public:
    explicit DriveList(QWidget* parent = nullptr);
    void showDrive(const QString& drive);

Q_SIGNALS:
    void driveChosen(const QString& drive);
};

class FolderTree : public QTreeView {
    Q_OBJECT
public:
    explicit FolderTree(QWidget* parent = nullptr);
    // The folders of `drive`, with `folder` the current one.
    void showFolder(const QString& drive, const QString& folder);

Q_SIGNALS:
    void folderChosen(const QString& folder);

private:
    QFileSystemModel* m_model;
    QString m_drive;
    bool m_mirroring = false;
};

class FileList : public QListView {
    Q_OBJECT
public:
    explicit FileList(QWidget* parent = nullptr);
    // Every file of `folder`: a backup may have any name.
    void showFolder(const QString& folder);

Q_SIGNALS:
    void fileChosen(const QString& fileName);

private:
    QFileSystemModel* m_model;
    QString m_folder;
    bool m_mirroring = false;
};

}  // namespace ostravel
