#pragma once

#include "ui/SpokenLabel.h"

#include <QUrl>

#include <functional>

/// Text with links (see hyperlinkFromString()), neither editable nor selectable. A click on a link, or Return
/// on the link that Tab reached, hands its address to the opener; the hand cursor shows over links only. In
/// Designer forms it is promoted from QLabel.
class HyperLinkTextField final : public SpokenLabel {
    Q_OBJECT

public:
    using Opener = std::function<void(const QUrl&)>;

    explicit HyperLinkTextField(QWidget* parent = nullptr);

    /// Tab stops here only when the text has links.
    void setText(const QString& text);
    /// Usually Workspace::openUrl().
    void setOpener(Opener opener);

protected:
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    Opener m_opener;
    QString m_linkColor;
};
