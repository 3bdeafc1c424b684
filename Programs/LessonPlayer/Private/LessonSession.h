#pragma once

// FLessonSession: the host around the plug-in. It does what a game or an editor tool does with
// the lesson player: puts the default lesson player and a comment overlay on screen over one
// media player, fills the playlist, reads the viewer's comment settings, loads the comment
// document, and keeps the overlay in step with playback (emptied when a seek completes, paused
// and resumed with the video). It also turns the viewer's keys into player calls. The runners
// (headless or windowed) tick it; it never draws.

#include "CoreMinimal.h"
#include "BulletChat/BulletChatSettings.h"
#include "LessonPlayerOptions.h"
#include "Window/LessonKey.h"

class FHeadlessApplication;
class UMediaPlayer;
class ULessonEventRelay;
class UUI_BulletChat;
class UUI_VidariaSystem;

/** One run of the program: the widgets, the playlist, the comments and the viewer's keys. */
class FLessonSession
{
public:
	FLessonSession(const FLessonPlayerOptions& InOptions, FHeadlessApplication& InApp);
	~FLessonSession();
	FLessonSession(const FLessonSession&) = delete;
	FLessonSession& operator=(const FLessonSession&) = delete;

	/**
	 * Checks the lessons and the comment file, puts the widgets on screen and opens the first
	 * lesson. Each problem is told in one line on stderr; false when nothing at all can be played.
	 */
	bool Start();

	/** Runs one frame of DeltaSeconds, then the host's own per-frame duties. */
	void Tick(float DeltaSeconds);

	/** Does what the viewer's key asks (keys the session does not own, such as Quit, are ignored). */
	void HandleKey(ELessonKey Key);

	/** Sends a comment as the viewer's send bar does: it flies at once, at the current time. */
	void SendComment(const FString& Text);

	/** True once the last lesson has ended or failed, and nothing is left to play. */
	bool IsFinished() const { return bFinished; }
	/** The comments flying over the picture now. */
	int32 CountCommentsInFlight() const;
	/** True when at least one lesson opened. */
	bool HasPlayedAnything() const { return bPlayedAnything; }
	/** The playlist entry playing now (0-based) and the number of entries. */
	int32 GetCurrentEntry() const { return CurrentEntry; }
	int32 GetEntryCount() const { return Urls.Num(); }

	UUI_VidariaSystem* GetPlayerWidget() const { return PlayerWidget; }
	UUI_BulletChat* GetOverlay() const { return Overlay; }
	UMediaPlayer* GetMediaPlayer() const { return MediaPlayer; }
	const FBulletChatSettings& GetCommentSettings() const { return CommentSettings; }

private:
	/** Turns the command line's lessons into playlist URLs, telling about each one that cannot be used. */
	void ResolveLessons();
	/** Reads and checks the comment document; empty (and one line told) when it cannot be used. */
	void ReadCommentDocument();
	/** Binds the relay to the media player's and the lesson player's events. */
	void BindEvents();
	/** Applies CommentSettings to the overlay and stores them in the viewer's save slot. */
	void ApplyCommentSettings(bool bStore);
	/** Opens the lesson after the current one, or ends the session (the lessons listed again) when there is none. */
	void AdvanceOrFinish();
	/** Lists the lessons in the player's playlist again if it has lost them, and opens lesson Entry. */
	void OpenLesson(int32 Entry);
	/**
	 * Lists the lessons in the player's playlist if it is empty. The player drops its playlist at
	 * every close, and the lesson player closes it at the end of each lesson, so the session keeps
	 * the lessons itself and hands them over again whenever the list is gone.
	 */
	void RefillPlaylist();
	/** The volume keys: a step of the multiplier, shown on the volume board. */
	void StepVolume(float Delta);
	/** The mute key: what a click on the mute box does. */
	void ToggleMute();
	/** Seeks by Seconds from the current time, kept inside the video. */
	void SeekBy(double Seconds);

	// What the viewer asked for.
	FLessonPlayerOptions Options;
	// The world, viewport and frame loop the widgets live in.
	FHeadlessApplication& App;
	// The lessons, as URLs the media player takes; the player's own playlist is refilled from it.
	TArray<FString> Urls;
	// The comment document's text, kept until the overlay has started and can take it.
	FString CommentDocument;
	// The lesson player from the default blueprint; rooted for the session's life.
	UUI_VidariaSystem* PlayerWidget = nullptr;
	// The comment overlay above the picture; rooted.
	UUI_BulletChat* Overlay = nullptr;
	// The player both widgets show; rooted.
	UMediaPlayer* MediaPlayer = nullptr;
	// Receives the players' dynamic events; rooted.
	ULessonEventRelay* Relay = nullptr;
	// The viewer's comment settings as stored in the save slot.
	FBulletChatSettings CommentSettings;
	// Frames run since Start; the overlay takes its document once it has started.
	int32 FramesRun = 0;
	// The entry playing now, by the URL the player opened.
	int32 CurrentEntry = 0;
	// The comment document went to the overlay.
	bool bCommentsLoaded = false;
	// Some lesson opened.
	bool bPlayedAnything = false;
	// Nothing is left to play.
	bool bFinished = false;
	// A lesson ended during this frame; the next opens once the lesson player has closed the player.
	bool bAdvancePending = false;
};
