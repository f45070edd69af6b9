// SPDX-License-Identifier: MIT
#include "enginepage.h"

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QJsonDocument>
#include <QMetaMethod>
#include <QNetworkReply>
#include <QScopedValueRollback>
#include <QUuid>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>

#include <memory>
#include <vector>

#include <csignal>
#include <ctime>

namespace {

// Milliseconds.
constexpr int answerPatience = 1500; ///< with a page that computes
constexpr int longestPatience = 10000; ///< with one that does not get to it: the machine is busy, or the page waits
constexpr int rendererPatience = 3000;
constexpr int glanceInterval = 100;

constexpr int blockedByClient = -20; ///< the engine's error where a request was not let through

// A policy counts once it has stood in a document's head; the parser makes a head of its own.
const char policyScript[] = R"(function setPolicy(attribute, name, content) {
    const policy = document.createElement('meta');
    policy[attribute] = name;
    policy.content = content;
    const hadRoot = document.documentElement !== null;
    const root = document.documentElement || document.appendChild(document.createElement('html'));
    const head = root.appendChild(document.createElement('head'));
    head.append(policy);
    head.remove();
    if (!hadRoot)
        root.remove();
})";

// Runs before the scripts of a document. Whatever it needs later it takes with it, since they may put their own in its
// place. The engine lets scripts wait for nothing but its own dialogs, so a prompt is what carries calls: those of a
// script together when it ends, since each prompt is a trip to another process.
const char bridgeScript[] = R"((function() {
    const secret = '%1', ask = window.prompt.bind(window), write = JSON.stringify, text = String;
    const atEndOfScript = window.queueMicrotask.bind(window), mostCalls = 10000;
    const convert = {s: value => value === null || value === undefined ? '' : text(value), n: Number, b: Boolean};
    const commit = JSON.parse(ask(secret, write({url: location.href})) || '{}');
    if (commit.scriptless)
        setPolicy('httpEquiv', 'Content-Security-Policy', "script-src 'none'");
    for (const script of commit.scripts || [])
        (0, eval)(script);
    let calls = [];
    function send() {
        const waiting = calls;
        calls = [];
        if (waiting.length > 0)
            ask(secret, write({calls: waiting}));
    }
    let depth = 0; // A value that is made a text may call from its toString(), for ever.
    for (const name in commit.objects) {
        const object = {};
        for (const [method, index, types] of commit.objects[name]) {
            object[method] = function() {
                if (depth > 16)
                    throw new RangeError('Too deep a call of ' + method);
                if (arguments.length < types.length)
                    throw new TypeError('Too few arguments of ' + method);
                const values = [];
                ++depth;
                try {
                    for (let i = 0; i < types.length; ++i) {
                        if (!convert[types[i]])
                            throw new TypeError('An argument of ' + method + ' cannot come from a script');
                        values[i] = convert[types[i]](arguments[i]);
                    }
                    if (calls.push({object: name, method: index, values: values}) >= mostCalls)
                        send();
                    else if (calls.length == 1)
                        atEndOfScript(send);
                } finally {
                    --depth;
                }
            };
        }
        window[name] = object;
    }
    %2
})())";

// Apart from the page's scripts, also in frames: no other host learns where a request comes from, and the end of a
// press that was none stays unseen (it is sent from far outside).
const char discretionScript[] = R"((function() {
    setPolicy('name', 'referrer', 'same-origin');
    ['mouseup', 'pointerup', 'click'].forEach(name => window.addEventListener(name,
        event => { if (event.clientX < -9000) event.stopImmediatePropagation(); }, true));
    %1
})())";

/// How a script's value becomes an argument: s text, n number, b truth, anything else not at all.
char argumentKind(const QMetaMethod &method, int parameter)
{
    switch (method.parameterType(parameter)) {
    case QMetaType::QString:
    case QMetaType::QUrl:
        return 's';
    case QMetaType::Int:
    case QMetaType::Double:
        return 'n';
    case QMetaType::Bool:
        return 'b';
    default:
        return '-';
    }
}

/// What every object has is no business of a page's, nor are signals.
bool isCallable(const QMetaMethod &method)
{
    return method.isValid() && method.access() == QMetaMethod::Public && method.methodType() != QMetaMethod::Signal
        && method.enclosingMetaObject() != &QObject::staticMetaObject;
}

QJsonArray callableMethods(const QMetaObject &type)
{
    QJsonArray methods;
    for (int i = 0; i < type.methodCount(); ++i) {
        const QMetaMethod method = type.method(i);
        if (!isCallable(method))
            continue;
        QString kinds;
        for (int parameter = 0; parameter < method.parameterCount(); ++parameter)
            kinds += QLatin1Char(argumentKind(method, parameter));
        methods.append(QJsonArray({QString::fromLatin1(method.name()), i, kinds}));
    }
    return methods;
}

/// Processor time that a process has had (milliseconds).
double processorTime(qint64 pid)
{
    clockid_t clock = 0;
    timespec time = {};
    if (clock_getcpuclockid(static_cast<pid_t>(pid), &clock) != 0 || clock_gettime(clock, &time) != 0)
        return 0;
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

QWebEngineScript scriptAtCreation(const QString &source, QWebEngineScript::ScriptWorldId world, bool inFrames)
{
    QWebEngineScript script;
    script.setSourceCode(source);
    script.setInjectionPoint(QWebEngineScript::DocumentCreation);
    script.setWorldId(world);
    script.setRunsOnSubFrames(inFrames);
    return script;
}

} // namespace

EnginePage::EnginePage(QWebPage &page, QWebEngineProfile *profile)
    : QWebEnginePage(profile, &page)
    , frame(*this)
    , webHistory(*history())
    , m_page(page)
    , m_secret(QUuid::createUuid().toString(QUuid::Id128))
{
    for (const auto attribute :
         {QWebEngineSettings::ShowScrollBars, QWebEngineSettings::ErrorPageEnabled,
          QWebEngineSettings::AutoLoadIconsForPage, QWebEngineSettings::PdfViewerEnabled,
          QWebEngineSettings::FocusOnNavigationEnabled, QWebEngineSettings::NavigateOnDropEnabled})
        settings()->setAttribute(attribute, false);
    settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    const QString policy = QString::fromLatin1(policyScript);
    scripts().insert(
        scriptAtCreation(QString::fromLatin1(bridgeScript).arg(m_secret, policy), QWebEngineScript::MainWorld, false));
    scripts().insert(
        scriptAtCreation(QString::fromLatin1(discretionScript).arg(policy), QWebEngineScript::ApplicationWorld, true));

    connect(this, &QWebEnginePage::loadingChanged, this, &EnginePage::onLoading);
    connect(this, &QWebEnginePage::urlChanged, this, &EnginePage::onEngineUrl);
    connect(this, &QWebEnginePage::renderProcessTerminated, this, &EnginePage::onRendererGone);
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        if (renderProcessPid() > 0)
            kill(static_cast<pid_t>(renderProcessPid()), SIGKILL);
    });
}

EnginePage::~EnginePage()
{
    // Its end is told to the page's scripts, which must reach nobody any more.
    m_objects.clear();
}

// Loads

void EnginePage::open(const QWebEngineHttpRequest &request)
{
    m_address = request.url();
    if (!begin())
        return;
    m_isAsked = m_isOwnStart = m_isAnyPageThere = true;
    m_isPageInTheWay = renderProcessPid() != 0;
    makeSureOfAnAnswer();
    load(request);
}

void EnginePage::openHtml(const QString &html, const QUrl &baseUrl)
{
    m_address = baseUrl;
    if (!begin())
        return;
    m_isAsked = m_isOwnStart = m_isAnyPageThere = true;
    setHtml(html, baseUrl);
}

void EnginePage::back()
{
    makeSureOfAnAnswer();
    triggerAction(QWebEnginePage::Back);
}

void EnginePage::stop()
{
    if (!m_isLoading)
        return;
    ++m_loadNumber;
    triggerAction(QWebEnginePage::Stop);
    m_patience.stop();
    end(false);
}

/// Ends the load that still runs and starts the next; false if that was answered with yet another one.
bool EnginePage::begin()
{
    const QPointer<EnginePage> self(this);
    const int number = ++m_loadNumber;
    if (m_isLoading) {
        if (m_isCommitted)
            emit addressChanged(m_address);
        if (self && number == m_loadNumber)
            end(false);
    }
    if (!self || number != m_loadNumber)
        return false;
    m_isLoading = true;
    m_isCommitted = m_isAsked = false;
    emit loadBegins();
    return self && number == m_loadNumber;
}

void EnginePage::end(bool ok)
{
    m_isLoading = m_isOwnStart = false;
    emit loadEnds(ok);
}

/// Ends a load of which nothing is to be shown.
void EnginePage::fail(QWebPage::ErrorDomain domain, int error, const QString &text)
{
    // What was asked for takes the place of the page before also where it does not come; a link's page stays.
    if (m_isAsked && !m_isCommitted) {
        tell(QStringLiteral("document.documentElement.replaceChildren()"));
        m_isLeft = true;
        m_objects.clear();
    }
    if (m_page.supportsExtension(QWebPage::ErrorPageExtension)) {
        QWebPage::ErrorPageExtensionOption option;
        option.url = m_address;
        option.frame = &frame;
        option.domain = domain;
        option.error = error;
        option.errorString = text;
        QWebPage::ErrorPageExtensionReturn unused;
        m_page.extension(QWebPage::ErrorPageExtension, &option, &unused);
    }
    end(false);
}

void EnginePage::onLoading(const QWebEngineLoadingInfo &info)
{
    if (info.status() == QWebEngineLoadingInfo::LoadStartedStatus) {
        if (!std::exchange(m_isOwnStart, false))
            begin();
        return;
    }
    // The end of what was stopped, was taken over or went with its process (a failure without an error) is told late.
    const bool isStopped = info.status() == QWebEngineLoadingInfo::LoadStoppedStatus;
    const bool isLost = info.status() == QWebEngineLoadingInfo::LoadFailedStatus
        && info.errorDomain() == QWebEngineLoadingInfo::NoErrorDomain;
    if (!m_isLoading || (m_isOwnStart && (isLost || (isStopped && info.url() != m_address))))
        return;
    m_patience.stop();
    if (info.status() == QWebEngineLoadingInfo::LoadSucceededStatus) {
        const QPointer<EnginePage> self(this);
        // An empty document begins so late that its end comes first.
        if (!m_isCommitted)
            commit(url());
        if (self && m_isLoading)
            end(true);
    } else if (isStopped) {
        // Nothing has failed: there is no page behind the address.
        end(false);
    } else if (info.errorCode() == blockedByClient) {
        fail(QWebPage::QtNetwork, QNetworkReply::ProtocolUnknownError, info.errorString());
    } else if (info.errorDomain() != QWebEngineLoadingInfo::HttpStatusCodeDomain) {
        fail(QWebPage::QtNetwork, info.errorCode(), info.errorString());
    } else if (ask(QStringLiteral("document.head.hasChildNodes() || document.body.hasChildNodes()")).toBool()) {
        end(true);
    } else {
        fail(QWebPage::Http, info.errorCode(), info.errorString());
    }
}

void EnginePage::onEngineUrl(const QUrl &url)
{
    // Of new documents the script that begins them tells; here it is a move within one.
    const bool isWithin = url.adjusted(QUrl::RemoveFragment) == m_documentUrl.adjusted(QUrl::RemoveFragment);
    const QPointer<EnginePage> self(this);
    if (m_isLoading && !m_isCommitted) {
        // An address that was asked for may be such a move, too, which is no load to the engine.
        if (m_isOwnStart && isWithin && url.hasFragment()) {
            m_documentUrl = url;
            emit addressChanged(url);
            if (self)
                end(true);
        }
        return;
    }
    if (url == m_documentUrl || url == m_address)
        return;
    m_address = m_documentUrl = url;
    emit addressChanged(url);
}

void EnginePage::commit(const QUrl &url)
{
    const QPointer<EnginePage> self(this);
    m_isLeft = false;
    m_isAnyPageThere = true;
    m_objects.clear();
    m_unanswered = 0;
    m_patience.stop();
    // Text that was given as a page is, to the engine, a page with the text for an address.
    const QUrl address = m_isAsked && url.scheme() == QLatin1String("data") ? m_address : url;
    m_documentUrl = url;
    // A script may have gone on to another document within the load, and the engine tells its address at any time.
    if ((m_isLoading && !m_isCommitted) || address != m_address) {
        m_address = address;
        m_isCommitted = true;
        emit addressChanged(m_address);
        if (!self)
            return;
    }
    m_isScriptless = !webSettings.testAttribute(QWebSettings::JavascriptEnabled);
    if (m_isScriptless)
        return;
    m_firstScripts = QJsonArray();
    m_isBeginning = true;
    emit frame.javaScriptWindowObjectCleared();
    if (self)
        m_isBeginning = false;
}

/// A page that computes for ever would keep the next one from beginning.
void EnginePage::makeSureOfAnAnswer()
{
    if (renderProcessPid() == 0)
        return;
    m_patience.start(rendererPatience);
    runJavaScript(QStringLiteral("0"), QWebEngineScript::ApplicationWorld,
                  [patience = QPointer<QTimer>(&m_patience)](const QVariant &) {
                      if (patience)
                          patience->stop();
                  });
}

void EnginePage::onRendererGone()
{
    m_objects.clear();
    m_unanswered = 0;
    if (m_isLoading && m_isAsked && !m_isCommitted) {
        // It stood in the way of this load, unless it is one that the engine began and gave up by itself.
        if (!std::exchange(m_isPageInTheWay, false))
            return;
        m_isOwnStart = true;
        QMetaObject::invokeMethod(
            this, [this] { load(m_address); }, Qt::QueuedConnection);
        return;
    }
    // Nobody is left who could answer a script; each would be waited for in vain.
    m_isAnyPageThere = false;
    if (m_isLoading || begin())
        fail(QWebPage::QtNetwork, QNetworkReply::UnknownNetworkError, QString());
}

// Scripts

QVariant EnginePage::evaluate(const QString &script, quint32 world)
{
    const bool isScriptless = m_isLeft || !webSettings.testAttribute(QWebSettings::JavascriptEnabled);
    if (!m_isAnyPageThere || (isScriptless && world == QWebEngineScript::MainWorld))
        return QVariant();
    if (m_isBeginning && world == QWebEngineScript::MainWorld) {
        m_firstScripts.append(script);
        return QVariant();
    }
    if (m_callDepth > 0 || m_unanswered > 0) {
        runJavaScript(script, world);
        return QVariant();
    }
    // The answer may come when this function has ended long since.
    struct Answer {
        QVariant value;
        bool isThere = false;
        QPointer<QEventLoop> waiting;
    };
    const auto answer = std::make_shared<Answer>();
    const QPointer<EnginePage> self(this);
    QEventLoop loop;
    QTimer glance;
    const QDeadlineTimer patience(longestPatience);
    const qint64 process = renderProcessPid();
    const double begin = processorTime(process);
    connect(&glance, &QTimer::timeout, &loop, [&] {
        if (patience.hasExpired() || !self || renderProcessPid() != process
            || processorTime(process) - begin >= answerPatience)
            loop.quit();
    });
    connect(this, &QWebEnginePage::renderProcessTerminated, &loop, &QEventLoop::quit);
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    answer->waiting = &loop;
    ++m_unanswered;
    runJavaScript(script, world, [object = QPointer<QObject>(this), answer](const QVariant &value) {
        // The engine answers all that it still owes while a page is destroyed, which is none of this class any more.
        if (auto *page = qobject_cast<EnginePage *>(object.data()))
            page->m_unanswered = 0;
        answer->value = value;
        answer->isThere = true;
        if (answer->waiting)
            answer->waiting->quit();
    });
    m_unanswered = 0;
    if (!answer->isThere) {
        glance.start(glanceInterval);
        // Inside the delivery of a posted event, Qt does not notice by itself that the engine's wait behind it.
        QAbstractEventDispatcher::instance()->wakeUp();
        loop.exec(QEventLoop::ExcludeUserInputEvents);
        if (self && !answer->isThere && renderProcessPid() != 0)
            m_unanswered = 1;
    }
    return answer->value;
}

QVariant EnginePage::ask(const QString &script)
{
    return evaluate(script, QWebEngineScript::ApplicationWorld);
}

void EnginePage::tell(const QString &script)
{
    if (m_isAnyPageThere)
        runJavaScript(script, QWebEngineScript::ApplicationWorld);
}

void EnginePage::addObject(const QString &name, QObject *object)
{
    m_objects.insert(name, object);
}

void EnginePage::setScales(qreal zoomFactor, qreal sharpness)
{
    m_viewZoom = zoomFactor;
    setZoomFactor(zoomFactor * sharpness);
}

bool EnginePage::javaScriptPrompt(const QUrl &, const QString &message, const QString &suggested, QString *result)
{
    const QPointer<EnginePage> self(this);
    if (message != m_secret)
        return m_page.javaScriptPrompt(&frame, message, suggested, result);
    ++m_callDepth;
    const QJsonObject request = QJsonDocument::fromJson(suggested.toUtf8()).object();
    const QUrl url(request.value(QLatin1String("url")).toString());
    const QJsonArray calls = request.value(QLatin1String("calls")).toArray();
    for (const QJsonValue &fields : calls) {
        if (self)
            call(fields.toObject());
    }
    if (calls.isEmpty() && url.scheme() != QLatin1String("chrome-error"))
        commit(url);
    if (!self)
        return false;
    *result = commitAnswer();
    --m_callDepth;
    return true;
}

QString EnginePage::commitAnswer()
{
    QJsonObject objects;
    for (auto it = m_objects.cbegin(); it != m_objects.cend(); ++it) {
        if (it.value())
            objects.insert(it.key(), callableMethods(*it.value()->metaObject()));
    }
    const QJsonObject answer{{QStringLiteral("objects"), objects},
                             {QStringLiteral("scripts"), m_firstScripts},
                             {QStringLiteral("scriptless"), m_isScriptless}};
    return QString::fromUtf8(QJsonDocument(answer).toJson(QJsonDocument::Compact));
}

void EnginePage::call(const QJsonObject &fields)
{
    QObject *object = m_objects.value(fields.value(QLatin1String("object")).toString());
    if (!object || !webSettings.testAttribute(QWebSettings::JavascriptEnabled))
        return;
    const int index = fields.value(QLatin1String("method")).toInt(-1);
    const QMetaMethod method = object->metaObject()->method(index);
    const QJsonArray values = fields.value(QLatin1String("values")).toArray();
    if (!isCallable(method) || values.size() != method.parameterCount())
        return;
    std::vector<QVariant> arguments;
    std::vector<void *> pointers = {nullptr};
    arguments.reserve(static_cast<size_t>(values.size()));
    for (int i = 0; i < values.size(); ++i) {
        arguments.push_back(values[i].toVariant());
        arguments.back().convert(method.parameterMetaType(i));
        pointers.push_back(arguments.back().data());
    }
    QMetaObject::metacall(object, QMetaObject::InvokeMetaMethod, index, pointers.data());
}

// What the engine asks for

bool EnginePage::acceptNavigationRequest(const QUrl &, NavigationType, bool)
{
    return true;
}

QWebEnginePage *EnginePage::createWindow(WebWindowType)
{
    return nullptr;
}

QStringList EnginePage::chooseFiles(FileSelectionMode, const QStringList &, const QStringList &)
{
    const QString file = m_page.chooseFile(&frame, QString());
    return file.isEmpty() ? QStringList() : QStringList(file);
}

void EnginePage::javaScriptAlert(const QUrl &, const QString &message)
{
    m_page.javaScriptAlert(&frame, message);
}

bool EnginePage::javaScriptConfirm(const QUrl &, const QString &message)
{
    return m_page.javaScriptConfirm(&frame, message);
}
