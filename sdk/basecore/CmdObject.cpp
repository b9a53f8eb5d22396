#include "sdk/basecore/CmdObject.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include "sdk/basetools/TextConversion.h"

namespace BASECORE::CMD {

namespace {

Q_LOGGING_CATEGORY(commands, "command")

}  // namespace

ICmdObject::~ICmdObject() = default;

CCmdObject::CCmdObject() = default;
CCmdObject::~CCmdObject() = default;

void CCmdObject::SetGroupCmd(ICmdObject* group) {
    m_group = group;
}
void CCmdObject::SetParam(const std::wstring& key, const boost::any& value) {
    m_params[key] = value;
}

boost::any CCmdObject::GetParam(const std::wstring& key) const {
    const auto found = m_params.find(key);
    return found == m_params.end() ? boost::any() : found->second;
}

std::wstring CCmdObject::GetGroup() const {
    return m_group ? m_group->GetName() : std::wstring();
}
CmdStatus CCmdObject::GetStatus() const {
    return m_status;
}
bool CCmdObject::IsEnable() const {
    return true;
}
bool CCmdObject::IsCheck() const {
    return false;
}
bool CCmdObject::Execute() {
    return false;
}
void CCmdObject::Stop() {
    m_status = CmdStatus::Idle;
}
void CCmdObject::ViewModelTypeRegistration() {}
void CCmdObject::ViewRegistration() {}
std::wstring CCmdObject::GetFault() const {
    return m_fault;
}
void CCmdObject::SetBaseCoreData(FRAME::IBaseCoreData* core) {
    m_core = core;
}

bool CCmdObject::OnLButtonDown(QMouseEvent*) {
    return false;
}
bool CCmdObject::OnLButtonUp(QMouseEvent*) {
    return false;
}
bool CCmdObject::OnLButtonDblClk(QMouseEvent*) {
    return false;
}
bool CCmdObject::OnRButtonDown(QMouseEvent*) {
    return false;
}
bool CCmdObject::OnRButtonUp(QMouseEvent*) {
    return false;
}
bool CCmdObject::OnRButtonDblClk(QMouseEvent*) {
    return false;
}
bool CCmdObject::OnMButtonDown(QMouseEvent*) {
    return false;
}
bool CCmdObject::OnMButtonUp(QMouseEvent*) {
    return false;
}
bool CCmdObject::OnMButtonDblClk(QMouseEvent*) {
    return false;
}
bool CCmdObject::OnMouseMove(QMouseEvent*) {
    return false;
}
bool CCmdObject::OnMouseWheel(QWheelEvent*) {
    return false;
}
bool CCmdObject::OnKeyDown(QKeyEvent*) {
    return false;
}
bool CCmdObject::OnKeyUp(QKeyEvent*) {
    return false;
}
bool CCmdObject::PreTranslateMessage(void*) {
    return false;
}
bool CCmdObject::OnSetCursor() {
    return false;
}

CPushMsgCmdObj::CPushMsgCmdObj() : m_queue(std::make_unique<QTimer>()) {
    m_queue->setSingleShot(true);
    QObject::connect(m_queue.get(), &QTimer::timeout, m_queue.get(), [this] { runQueued(); });
}
CPushMsgCmdObj::~CPushMsgCmdObj() = default;

std::wstring CPushMsgCmdObj::GetGroup() const {
    return CCmdObject::GetGroup();
}

bool CPushMsgCmdObj::Execute() {
    if (!IsEnable() || m_isQueued)
        return false;
    SetFault({});
    SetStatus(CmdStatus::Running);
    m_isQueued = true;
    m_queue->start(0);
    return true;
}

void CPushMsgCmdObj::runQueued() {
    if (!m_isQueued)
        return;  // stopped while it was queued
    m_isQueued = false;
    ++m_running;
    const QPointer<QObject> alive(m_queue.get());  // a modal run may outlive the command
    std::wstring fault;
    try {
        if (!RunCommand() || (alive && !FinishCommand()))
            fault = QCoreApplication::translate("BASECORE", "命令没有完成").toStdWString();
    } catch (const std::exception& failure) {
        fault = BASETOOLS::AnsiToUnicode(failure.what());
    } catch (...) {
        fault = QCoreApplication::translate("BASECORE", "命令意外中断").toStdWString();
    }
    if (!alive)
        return;
    --m_running;
    settle();
    SetFault(fault);
    if (!fault.empty())
        qCWarning(commands).noquote() << QString::fromStdWString(GetName()) << QString::fromStdWString(fault);
}

void CPushMsgCmdObj::Stop() {
    m_isQueued = false;
    settle();
}

void CPushMsgCmdObj::settle() {
    SetStatus(m_running || m_isQueued ? CmdStatus::Running : CmdStatus::Idle);
}

}  // namespace BASECORE::CMD
