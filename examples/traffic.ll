; ModuleID = 'traffic.cpp'
source_filename = "traffic.cpp"
target datalayout = "e-m:e-p:16:16-i32:16-i64:16-f32:16-f64:16-a:8-n8:16-S16"
target triple = "msp430"

%"struct.traffic::Phase" = type { i8, i16, i16 (%"struct.traffic::Crossing"*)* }
%"struct.traffic::Crossing" = type { i16, i16, i8, i8, i16 }

@_ZN7trafficL6phasesE = internal constant [6 x %"struct.traffic::Phase"] [%"struct.traffic::Phase" { i8 9, i16 2, i16 (%"struct.traffic::Crossing"*)* @_ZN7trafficL9after_redERKNS_8CrossingE }, %"struct.traffic::Phase" { i8 33, i16 30, i16 (%"struct.traffic::Crossing"*)* @_ZN7trafficL11after_northERKNS_8CrossingE }, %"struct.traffic::Phase" { i8 17, i16 4, i16 (%"struct.traffic::Crossing"*)* @_ZN7trafficL18after_north_yellowERKNS_8CrossingE }, %"struct.traffic::Phase" { i8 12, i16 20, i16 (%"struct.traffic::Crossing"*)* @_ZN7trafficL10after_eastERKNS_8CrossingE }, %"struct.traffic::Phase" { i8 10, i16 4, i16 (%"struct.traffic::Crossing"*)* @_ZN7trafficL6to_redERKNS_8CrossingE }, %"struct.traffic::Phase" { i8 73, i16 12, i16 (%"struct.traffic::Crossing"*)* @_ZN7trafficL6to_redERKNS_8CrossingE }], align 2
@_ZL8crossing = internal global %"struct.traffic::Crossing" { i16 0, i16 1, i8 0, i8 0, i16 0 }, align 2

; Function Attrs: mustprogress noinline nounwind optnone
define void @_ZN7traffic6handleERNS_8CrossingENS_5EventE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8) %crossing, i16 %event) #0 {
entry:
  %crossing.addr = alloca %"struct.traffic::Crossing"*, align 2
  %event.addr = alloca i16, align 2
  store %"struct.traffic::Crossing"* %crossing, %"struct.traffic::Crossing"** %crossing.addr, align 2
  store i16 %event, i16* %event.addr, align 2
  %0 = load i16, i16* %event.addr, align 2
  switch i16 %0, label %sw.default [
    i16 0, label %sw.bb
    i16 1, label %sw.bb1
    i16 2, label %sw.bb8
  ]

sw.bb:
  %1 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  call void @_ZN7trafficL4stepERNS_8CrossingE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8) %1)
  br label %sw.epilog

sw.bb1:
  %2 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %state = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %2, i32 0, i32 0
  %3 = load i16, i16* %state, align 2
  %cmp = icmp ne i16 %3, 5
  br i1 %cmp, label %if.then, label %if.end7

if.then:
  %4 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %walk_wanted = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %4, i32 0, i32 2
  store i8 1, i8* %walk_wanted, align 2
  %5 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %state2 = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %5, i32 0, i32 0
  %6 = load i16, i16* %state2, align 2
  %cmp3 = icmp eq i16 %6, 1
  br i1 %cmp3, label %land.lhs.true, label %if.end

land.lhs.true:
  %7 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %left = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %7, i32 0, i32 1
  %8 = load i16, i16* %left, align 2
  %cmp4 = icmp sgt i16 %8, 5
  br i1 %cmp4, label %if.then5, label %if.end

if.then5:
  %9 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %left6 = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %9, i32 0, i32 1
  store i16 5, i16* %left6, align 2
  br label %if.end

if.end:
  br label %if.end7

if.end7:
  br label %sw.epilog

sw.bb8:
  %10 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %at_night = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %10, i32 0, i32 3
  %11 = load i8, i8* %at_night, align 1
  %tobool = trunc i8 %11 to i1
  %lnot = xor i1 %tobool, true
  %12 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %at_night9 = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %12, i32 0, i32 3
  %frombool = zext i1 %lnot to i8
  store i8 %frombool, i8* %at_night9, align 1
  br label %sw.epilog

sw.default:
  %13 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  call void @_ZN7trafficL5enterERNS_8CrossingENS_5StateE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8) %13, i16 0)
  br label %sw.epilog

sw.epilog:
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal void @_ZN7trafficL4stepERNS_8CrossingE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8) %crossing) #0 {
entry:
  %crossing.addr = alloca %"struct.traffic::Crossing"*, align 2
  store %"struct.traffic::Crossing"* %crossing, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %0 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %left = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %0, i32 0, i32 1
  %1 = load i16, i16* %left, align 2
  %dec = add nsw i16 %1, -1
  store i16 %dec, i16* %left, align 2
  %cmp = icmp sgt i16 %dec, 0
  br i1 %cmp, label %if.then, label %if.end

if.then:
  br label %return

if.end:
  %2 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %3 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %state = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %3, i32 0, i32 0
  %4 = load i16, i16* %state, align 2
  %arrayidx = getelementptr inbounds [6 x %"struct.traffic::Phase"], [6 x %"struct.traffic::Phase"]* @_ZN7trafficL6phasesE, i16 0, i16 %4
  %next = getelementptr inbounds %"struct.traffic::Phase", %"struct.traffic::Phase"* %arrayidx, i32 0, i32 2
  %5 = load i16 (%"struct.traffic::Crossing"*)*, i16 (%"struct.traffic::Crossing"*)** %next, align 2
  %6 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %call = call i16 %5(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8) %6)
  call void @_ZN7trafficL5enterERNS_8CrossingENS_5StateE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8) %2, i16 %call)
  br label %return

return:
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal void @_ZN7trafficL5enterERNS_8CrossingENS_5StateE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8) %crossing, i16 %state) #0 {
entry:
  %crossing.addr = alloca %"struct.traffic::Crossing"*, align 2
  %state.addr = alloca i16, align 2
  store %"struct.traffic::Crossing"* %crossing, %"struct.traffic::Crossing"** %crossing.addr, align 2
  store i16 %state, i16* %state.addr, align 2
  %0 = load i16, i16* %state.addr, align 2
  %cmp = icmp eq i16 %0, 0
  br i1 %cmp, label %if.then, label %if.end

if.then:
  %1 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %cycles = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %1, i32 0, i32 4
  %2 = load i16, i16* %cycles, align 2
  %inc = add i16 %2, 1
  store i16 %inc, i16* %cycles, align 2
  br label %if.end

if.end:
  %3 = load i16, i16* %state.addr, align 2
  %cmp1 = icmp eq i16 %3, 5
  br i1 %cmp1, label %if.then2, label %if.end3

if.then2:
  %4 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %walk_wanted = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %4, i32 0, i32 2
  store i8 0, i8* %walk_wanted, align 2
  br label %if.end3

if.end3:
  %5 = load i16, i16* %state.addr, align 2
  %6 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %state4 = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %6, i32 0, i32 0
  store i16 %5, i16* %state4, align 2
  %7 = load i16, i16* %state.addr, align 2
  %arrayidx = getelementptr inbounds [6 x %"struct.traffic::Phase"], [6 x %"struct.traffic::Phase"]* @_ZN7trafficL6phasesE, i16 0, i16 %7
  %seconds = getelementptr inbounds %"struct.traffic::Phase", %"struct.traffic::Phase"* %arrayidx, i32 0, i32 1
  %8 = load i16, i16* %seconds, align 2
  %9 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %left = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %9, i32 0, i32 1
  store i16 %8, i16* %left, align 2
  %10 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %at_night = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %10, i32 0, i32 3
  %11 = load i8, i8* %at_night, align 1
  %tobool = trunc i8 %11 to i1
  br i1 %tobool, label %land.lhs.true, label %if.end9

land.lhs.true:
  %12 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %left5 = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %12, i32 0, i32 1
  %13 = load i16, i16* %left5, align 2
  %cmp6 = icmp sgt i16 %13, 10
  br i1 %cmp6, label %if.then7, label %if.end9

if.then7:
  %14 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %left8 = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %14, i32 0, i32 1
  store i16 10, i16* %left8, align 2
  br label %if.end9

if.end9:
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define zeroext i8 @lamps() #0 {
entry:
  %0 = load i16, i16* getelementptr inbounds (%"struct.traffic::Crossing", %"struct.traffic::Crossing"* @_ZL8crossing, i32 0, i32 0), align 2
  %arrayidx = getelementptr inbounds [6 x %"struct.traffic::Phase"], [6 x %"struct.traffic::Phase"]* @_ZN7trafficL6phasesE, i16 0, i16 %0
  %lamps = getelementptr inbounds %"struct.traffic::Phase", %"struct.traffic::Phase"* %arrayidx, i32 0, i32 0
  %1 = load i8, i8* %lamps, align 2
  ret i8 %1
}

; Function Attrs: mustprogress noinline nounwind optnone
define void @simulate(i8* %events) #0 {
entry:
  %events.addr = alloca i8*, align 2
  %c = alloca i8, align 1
  %event = alloca i16, align 2
  store i8* %events, i8** %events.addr, align 2
  br label %while.body.1

while.body.1:
  br label %again

again:
  %0 = load i8*, i8** %events.addr, align 2
  %incdec.ptr = getelementptr inbounds i8, i8* %0, i32 1
  store i8* %incdec.ptr, i8** %events.addr, align 2
  %1 = load i8, i8* %0, align 1
  store i8 %1, i8* %c, align 1
  %2 = load i8, i8* %c, align 1
  %tobool = icmp ne i8 %2, 0
  br i1 %tobool, label %if.end.1, label %if.then.1

if.then.1:
  br label %while.end

if.end.1:
  store i16 0, i16* %event, align 2
  %3 = load i8, i8* %c, align 1
  %conv = sext i8 %3 to i16
  %cmp = icmp eq i16 %conv, 98
  br i1 %cmp, label %if.then, label %if.else

if.then:
  store i16 1, i16* %event, align 2
  br label %if.end9

if.else:
  %4 = load i8, i8* %c, align 1
  %conv1 = sext i8 %4 to i16
  %cmp2 = icmp eq i16 %conv1, 110
  br i1 %cmp2, label %if.then3, label %if.else4

if.then3:
  store i16 2, i16* %event, align 2
  br label %if.end8

if.else4:
  %5 = load i8, i8* %c, align 1
  %conv5 = sext i8 %5 to i16
  %cmp6 = icmp eq i16 %conv5, 33
  br i1 %cmp6, label %if.then7, label %if.end

if.then7:
  store i16 3, i16* %event, align 2
  br label %if.end

if.end:
  br label %if.end8

if.end8:
  br label %if.end9

if.end9:
  %6 = load i16, i16* %event, align 2
  call void @_ZN7traffic6handleERNS_8CrossingENS_5EventE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8) @_ZL8crossing, i16 %6)
  br label %while.body.1

while.end:
  ret void
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal i16 @_ZN7trafficL9after_redERKNS_8CrossingE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8) %crossing) #0 {
entry:
  %crossing.addr = alloca %"struct.traffic::Crossing"*, align 2
  store %"struct.traffic::Crossing"* %crossing, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %0 = load %"struct.traffic::Crossing"*, %"struct.traffic::Crossing"** %crossing.addr, align 2
  %walk_wanted = getelementptr inbounds %"struct.traffic::Crossing", %"struct.traffic::Crossing"* %0, i32 0, i32 2
  %1 = load i8, i8* %walk_wanted, align 2
  %tobool = trunc i8 %1 to i1
  %2 = zext i1 %tobool to i64
  %cond = select i1 %tobool, i16 5, i16 1
  ret i16 %cond
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal i16 @_ZN7trafficL11after_northERKNS_8CrossingE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8)) #0 {
entry:
  %.addr = alloca %"struct.traffic::Crossing"*, align 2
  store %"struct.traffic::Crossing"* %0, %"struct.traffic::Crossing"** %.addr, align 2
  ret i16 2
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal i16 @_ZN7trafficL18after_north_yellowERKNS_8CrossingE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8)) #0 {
entry:
  %.addr = alloca %"struct.traffic::Crossing"*, align 2
  store %"struct.traffic::Crossing"* %0, %"struct.traffic::Crossing"** %.addr, align 2
  ret i16 3
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal i16 @_ZN7trafficL10after_eastERKNS_8CrossingE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8)) #0 {
entry:
  %.addr = alloca %"struct.traffic::Crossing"*, align 2
  store %"struct.traffic::Crossing"* %0, %"struct.traffic::Crossing"** %.addr, align 2
  ret i16 4
}

; Function Attrs: mustprogress noinline nounwind optnone
define internal i16 @_ZN7trafficL6to_redERKNS_8CrossingE(%"struct.traffic::Crossing"* nonnull align 2 dereferenceable(8)) #0 {
entry:
  %.addr = alloca %"struct.traffic::Crossing"*, align 2
  store %"struct.traffic::Crossing"* %0, %"struct.traffic::Crossing"** %.addr, align 2
  ret i16 0
}

attributes #0 = { mustprogress noinline nounwind optnone "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }

!llvm.module.flags = !{!0, !1, !2}
!llvm.ident = !{!3}

!0 = !{i32 1, !"SemanticInterposition", i32 1}
!1 = !{i32 1, !"wchar_size", i32 2}
!2 = !{i32 7, !"PIC Level", i32 2}
!3 = !{!"Debian clang version 14.0.6"}
!4 = distinct !{!4, !5}
!5 = !{!"llvm.loop.mustprogress"}
